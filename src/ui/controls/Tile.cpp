// SPDX-License-Identifier: MIT
#include "ui/controls/Tile.h"

#include "ui/controls/Look.h"

namespace zeph::ui {

Tile::Tile(Words words, QWidget *parent) : QPushButton(parent) {
    set(words);
}

void Tile::set(const Words &words) {
    m_words = words;
    setText(words.title);
    setAccessibleName(words.title);
    setAccessibleDescription(
        words.state.isEmpty() ? words.blurb : words.blurb + QStringLiteral(". ") + words.state);
    updateGeometry();
    update();
}

QSize Tile::sizeHint() const {
    return {scaled(294), scaled(m_words.state.isEmpty() ? 66 : 90)};
}

} // namespace zeph::ui
