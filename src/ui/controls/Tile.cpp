// SPDX-License-Identifier: MIT
#include "ui/controls/Tile.h"

#include "ui/controls/BalancedText.h"
#include "ui/controls/LiteralText.h"
#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QPainter>
#include <QStyle>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double designedWidth = 294;
constexpr double leastTileWidth = 160;
constexpr double leastTileHeight = 66;
constexpr double additionHeight = 52;
constexpr double tileRadius = 16;
constexpr double aboveTileText = 14;
constexpr double besideTileText = 16;
constexpr double tileSymbolSize = 22;
constexpr double tileTextStart = 52;
constexpr double tileTextEnd = 48; // room for the chevron
constexpr double blurbToState = 6;
constexpr double stateSymbolSize = 16;
constexpr double stateSymbolToText = 5;
constexpr double tileChevronSize = 16;
constexpr int mostBlurbLines = 3;

BalancedText blurbOf(const Tile::Words &words, int width) {
    return {words.blurb,
            font(TypeRole::detail),
            {static_cast<double>(width), static_cast<double>(lineHeight(TypeRole::detail)),
             mostBlurbLines}};
}

/// The inks of the line that tells a tile's state.
struct StateInks {
    QColor symbol;
    QColor text;
};

/// Amber is for what is on; what only tells of the service stays back.
StateInks stateInks(const QString &symbol, const Tokens &tokens) {
    if (symbol == u"xmark.circle" || symbol == u"exclamationmark.triangle") {
        return {tokens.error, tokens.ink};
    }
    if (symbol == u"checkmark.circle.fill") {
        return {tokens.accent, tokens.ink};
    }
    return {tokens.second, tokens.second};
}

} // namespace

Tile::Tile(const Words &words, QWidget *parent)
    : QPushButton(parent), m_interaction(*this, [this] { return shape(); }) {
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setAutoDefault(true); // so that Enter presses it too
    set(words);
}

void Tile::set(const Words &words) {
    m_words = words;
    setLiteralText(*this, words.title);
    setAccessibleDescription(words.state.isEmpty() ? words.blurb
                                                   : words.blurb + u". "_s + words.state);
    updateGeometry();
    update();
}

Rounded Tile::shape() const {
    return {QRectF(rect()), tileRadius * scale()};
}

int Tile::textWidth(int width) const {
    return std::max(1, width - scaled(tileTextStart) -
                           scaled(m_words.isAddition ? besideTileText : tileTextEnd));
}

int Tile::heightForWidth(int width) const {
    int height = 2 * scaled(aboveTileText) + lineHeight(TypeRole::row);
    if (!m_words.blurb.isEmpty()) {
        height += blurbOf(m_words, textWidth(width)).height();
    }
    if (!m_words.state.isEmpty()) {
        height += scaled(blurbToState) + lineHeight(TypeRole::detail);
    }
    return std::max(height, scaled(m_words.isAddition ? additionHeight : leastTileHeight));
}

QSize Tile::sizeHint() const {
    return {scaled(designedWidth), heightForWidth(scaled(designedWidth))};
}

QSize Tile::minimumSizeHint() const {
    return {scaled(leastTileWidth), scaled(m_words.isAddition ? additionHeight : leastTileHeight)};
}

void Tile::paintState(QPainter &painter, double y) const {
    const Look &look = Look::of(*this);
    const double line = lineHeight(TypeRole::detail);
    const StateInks inks = stateInks(m_words.stateSymbol, look.tokens());
    double x = scaled(tileTextStart);
    if (!m_words.stateSymbol.isEmpty()) {
        const double side = scaled(stateSymbolSize);
        const QRectF place = mirrored(*this, QRectF(x, y + (line - side) / 2, side, side));
        painter.drawPixmap(place.topLeft(),
                           look.symbol(*this, m_words.stateSymbol, side, inks.symbol));
        x += side + scaled(stateSymbolToText);
    }
    const QFont used = ui::font(TypeRole::detail);
    const int width =
        std::max(0, textWidth(this->width()) + scaled(tileTextStart) - static_cast<int>(x));
    painter.setFont(used);
    painter.setPen(inks.text);
    painter.drawText(mirrored(*this, QRectF(x, y, width, line)),
                     drawFlags(QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) |
                               Qt::AlignAbsolute | Qt::AlignVCenter),
                     QFontMetrics(used).elidedText(m_words.state, Qt::ElideRight, width));
}

void Tile::paintTexts(QPainter &painter) const {
    const Tokens &tokens = Look::of(*this).tokens();
    const Qt::Alignment start =
        QStyle::visualAlignment(layoutDirection(), Qt::AlignLeft) | Qt::AlignAbsolute;
    const int width = textWidth(this->width());
    const double titleHeight = lineHeight(TypeRole::row);
    double y = m_words.blurb.isEmpty() && m_words.state.isEmpty() ? (height() - titleHeight) / 2
                                                                  : scaled(aboveTileText);
    const QFont titleFont = ui::font(TypeRole::row);
    painter.setFont(titleFont);
    painter.setPen(tokens.ink);
    painter.drawText(mirrored(*this, QRectF(scaled(tileTextStart), y, width, titleHeight)),
                     drawFlags(start | Qt::AlignVCenter),
                     QFontMetrics(titleFont).elidedText(m_words.title, Qt::ElideRight, width));
    y += titleHeight;
    if (!m_words.blurb.isEmpty()) {
        const BalancedText blurb = blurbOf(m_words, width);
        painter.setPen(tokens.second);
        blurb.paint(painter,
                    mirrored(*this, QRectF(scaled(tileTextStart), y, width, blurb.height())),
                    start);
        y += blurb.height();
    }
    if (!m_words.state.isEmpty()) {
        paintState(painter, y + scaled(blurbToState));
    }
}

void Tile::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        painter.setLayoutDirection(Qt::LayoutDirectionAuto);
        const Look &look = Look::of(*this);
        const Tokens &tokens = look.tokens();
        if (m_words.isAddition) {
            painter.fillPath(shape().path(),
                             blend(Qt::transparent, tokens.hover, m_interaction.hover()));
            paintHairline(painter, shape(), tokens.hair);
        } else {
            painter.fillPath(shape().path(),
                             blend(tokens.card, tokens.cardHover, m_interaction.hover()));
        }
        if (look.appearance() == Appearance::highContrast) {
            paintHairline(painter, shape(), tokens.ink);
        }
        if (isDown()) {
            painter.fillPath(shape().path(), tokens.hover);
        }
        const double side = scaled(tileSymbolSize);
        const double symbolY = m_words.blurb.isEmpty() && m_words.state.isEmpty()
                                   ? (height() - side) / 2
                                   : scaled(aboveTileText) + (lineHeight(TypeRole::row) - side) / 2;
        painter.drawPixmap(
            mirrored(*this, QRectF(scaled(besideTileText), symbolY, side, side)).topLeft(),
            look.symbol(*this, m_words.symbol, side, tokens.second));
        paintTexts(painter);
        if (!m_words.isAddition) {
            const double chevron = scaled(tileChevronSize);
            const QRectF place(width() - scaled(besideTileText) + 2 - chevron,
                               (height() - chevron) / 2, chevron, chevron);
            painter.drawPixmap(mirrored(*this, place).topLeft(),
                               look.symbol(*this, u"chevron.right"_s, chevron, tokens.third));
        }
    });
}

} // namespace zeph::ui
