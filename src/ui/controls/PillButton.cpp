// SPDX-License-Identifier: MIT
#include "ui/controls/PillButton.h"

#include "ui/controls/LiteralText.h"
#include "ui/controls/Look.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace zeph::ui {

namespace {

constexpr double buttonSymbol = 16;
constexpr double symbolGap = 8;
constexpr double hoveredDarkInk = 0.09; // of white lightens a dark fill
constexpr double pressedPrimary = 0.16; // of the ground shows through
constexpr double plainReach = 6;        // of the ring beyond a text without a shape

double heightOf(PillButton::Height height, PillButton::Kind kind) {
    if (kind == PillButton::Kind::plain) {
        return 30;
    }
    switch (height) {
    case PillButton::Height::small:
        return 30;
    case PillButton::Height::normal:
        return 34;
    case PillButton::Height::large:
        return 40;
    }
    return 34;
}

} // namespace

PillButton::PillButton(const QString &text, Kind kind, QWidget *parent)
    : QPushButton(parent), m_kind(kind) {
    setText(text);
    setAutoDefault(true); // so that Enter presses it too
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PillButton::setText(const QString &text) {
    setLiteralText(*this, text);
}

void PillButton::setKind(Kind kind) {
    m_kind = kind;
    updateGeometry();
    update();
}

void PillButton::setHeight(Height height) {
    m_height = height;
    updateGeometry();
    update();
}

void PillButton::setSymbol(const QString &identifier) {
    m_symbol = identifier;
    updateGeometry();
    update();
}

QFont PillButton::textFont() const {
    return ui::font(m_kind == Kind::plain ? TypeRole::segment : TypeRole::button);
}

double PillButton::padding() const {
    if (m_kind == Kind::plain) {
        return 0;
    }
    switch (m_height) {
    case Height::small:
        return scaled(14);
    case Height::normal:
        return scaled(18);
    case Height::large:
        return scaled(24);
    }
    return scaled(18);
}

QSize PillButton::sizeHint() const {
    const double symbol = m_symbol.isEmpty() ? 0 : scaled(buttonSymbol) + scaled(symbolGap);
    const double wide = QFontMetricsF(textFont()).horizontalAdvance(text());
    return {static_cast<int>(std::ceil(wide + symbol + 2 * padding())),
            scaled(heightOf(m_height, m_kind))};
}

Rounded PillButton::ringShape() const {
    const double reach = m_kind == Kind::plain ? plainReach * scale() : 0;
    return pill(QRectF(rect()).adjusted(-reach, 0, reach, 0));
}

void PillButton::paintBack(QPainter &painter, const Tokens &tokens) const {
    const Rounded shape = pill(rect());
    const double hover = m_interaction.hover();
    if (m_kind == Kind::plain) {
        return;
    }
    if (m_kind == Kind::primary) {
        const bool isLight = tokens.ink.lightness() >= 128;
        const double lighter = hover * (isLight ? 1 : hoveredDarkInk);
        painter.fillPath(shape.path(), isDown() ? blend(tokens.ink, tokens.ground, pressedPrimary)
                                                : blend(tokens.ink, Qt::white, lighter));
        return;
    }
    painter.fillPath(shape.path(),
                     isDown() ? tokens.press : blend(tokens.button, tokens.buttonHover, hover));
    paintHairline(painter, shape, tokens.hair);
}

QColor PillButton::inkOf(const Tokens &tokens) const {
    switch (m_kind) {
    case Kind::primary:
        return tokens.ground;
    case Kind::secondary:
        return tokens.ink;
    case Kind::destructive:
        return tokens.error;
    case Kind::plain:
        return blend(tokens.second, tokens.ink, isDown() ? 1 : m_interaction.hover());
    }
    return tokens.ink;
}

void PillButton::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        const Tokens &tokens = Look::of(*this).tokens();
        paintBack(painter, tokens);
        const QFontMetricsF metrics(textFont());
        const double symbol = m_symbol.isEmpty() ? 0 : scaled(buttonSymbol) + scaled(symbolGap);
        const double room = width() - 2 * padding() - symbol;
        const QString shown = metrics.elidedText(text(), Qt::ElideRight, std::ceil(room) + 1);
        const double wide = metrics.horizontalAdvance(shown);
        const double start = (width() - symbol - wide) / 2;
        const QColor ink = inkOf(tokens);
        if (!m_symbol.isEmpty()) {
            const double size = scaled(buttonSymbol);
            const QRectF place(start, (height() - size) / 2, size, size);
            paintSymbol(painter, *this, m_symbol, mirrored(*this, place), ink);
        }
        painter.setFont(textFont());
        painter.setPen(ink);
        const QRectF place(start + symbol, 0, wide + 1, height());
        painter.drawText(mirrored(*this, place), Qt::AlignCenter | Qt::TextSingleLine, shown);
    });
}

} // namespace zeph::ui
