// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QPushButton>

namespace zeph::ui {

/// A card to press, two abreast: symbol, title, a line, and where it stands.
class Tile : public QPushButton {
public:
    struct Words {
        QString symbol;
        QString title;
        QString blurb;
        QString stateSymbol = {};
        QString state = {};      ///< empty for none
        bool isAddition = false; ///< drawn as an outline
    };

    explicit Tile(const Words &words, QWidget *parent = nullptr);

    void set(const Words &words);
    const Words &words() const { return m_words; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void paintTexts(QPainter &painter) const;
    void paintState(QPainter &painter, double y) const;
    Rounded shape() const;
    int textWidth(int width) const;

    Words m_words;
    Interaction m_interaction;
};

} // namespace zeph::ui
