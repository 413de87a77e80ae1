// SPDX-License-Identifier: MIT
#include "ui/controls/IconButton.h"

#include "ui/controls/Look.h"

#include <QPainter>

namespace zeph::ui {

namespace {

constexpr double iconButtonSize = 30;
constexpr double glyphSize = 18;

} // namespace

IconButton::IconButton(QString symbol, const QString &name, QWidget *parent)
    : QPushButton(parent), m_symbol(std::move(symbol)) {
    setName(name);
    setAutoDefault(true); // so that Enter presses it too
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void IconButton::setSymbol(const QString &identifier) {
    m_symbol = identifier;
    update();
}

void IconButton::setName(const QString &name) {
    setAccessibleName(name);
    setToolTip(name);
}

QSize IconButton::sizeHint() const {
    return {scaled(iconButtonSize), scaled(iconButtonSize)};
}

void IconButton::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        const Tokens &tokens = Look::of(*this).tokens();
        const double hover = m_interaction.hover();
        const QColor fill = isDown() ? tokens.press : blend(Qt::transparent, tokens.fill, hover);
        painter.fillPath(pill(rect()).path(), fill);
        QRectF place(0, 0, scaled(glyphSize), scaled(glyphSize));
        place.moveCenter(QRectF(rect()).center());
        paintSymbol(painter, *this, m_symbol, place, blend(tokens.second, tokens.ink, hover));
    });
}

} // namespace zeph::ui
