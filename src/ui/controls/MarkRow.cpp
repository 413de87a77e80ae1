// SPDX-License-Identifier: MIT
#include "ui/controls/MarkRow.h"

#include "ui/controls/LiteralText.h"
#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>
#include <utility>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double markRowHeight = 40;
constexpr double markRowEdge = 20;
constexpr double markSize = 20;
constexpr double markTextStart = 56;
constexpr double markTitleToDetail = 16;
constexpr double markRingRadius = 13;
constexpr QRectF openSquare(3, 3, 18, 18); // as the filled one, of the 24 units of its grid
constexpr double openSquareRadius = 4;
constexpr double gridUnits = 24;
constexpr double squareStroke = 1.5;

QSize markRowHint(const QAbstractButton &row, const QString &detail) {
    const int title = QFontMetrics(font(TypeRole::row)).horizontalAdvance(row.text());
    const int word = QFontMetrics(font(TypeRole::detail)).horizontalAdvance(detail);
    return {scaled(markTextStart) + title + scaled(markTitleToDetail) + word + scaled(markRowEdge),
            scaled(markRowHeight)};
}

QSize leastMarkRow() {
    return {scaled(2 * markTextStart), scaled(markRowHeight)};
}

/// What is not chosen; there is no symbol of an empty square.
void paintOpenSquare(QPainter &painter, const QRectF &place, const QColor &color) {
    const double unit = place.width() / gridUnits;
    const QRectF square(place.topLeft() + openSquare.topLeft() * unit, openSquare.size() * unit);
    const double half = squareStroke * unit / 2;
    strokeInside(painter, Rounded{square, openSquareRadius * unit}.inset(-half),
                 squareStroke * unit, color);
}

void paintMark(QPainter &painter, QAbstractButton &row, const QRectF &place) {
    const Look &look = Look::of(row);
    const Tokens &tokens = look.tokens();
    const bool isOne = dynamic_cast<const QRadioButton *>(&row) != nullptr;
    if (row.isChecked()) {
        const QString mark = isOne ? u"largecircle.fill.circle"_s : u"checkmark.square.fill"_s;
        painter.drawPixmap(place.topLeft(), look.symbol(row, mark, place.width(), tokens.accent));
    } else if (isOne) {
        painter.drawPixmap(place.topLeft(),
                           look.symbol(row, u"circle"_s, place.width(), tokens.second));
    } else {
        paintOpenSquare(painter, place, tokens.second);
    }
}

void paintMarkRow(QPainter &painter, QAbstractButton &row, const QString &detail,
                  const Interaction &interaction) {
    const Tokens &tokens = Look::of(row).tokens();
    painter.setLayoutDirection(Qt::LayoutDirectionAuto); // "2 monitors" reads the same anywhere
    QColor hover = tokens.hover;
    hover.setAlphaF(hover.alphaF() * static_cast<float>(interaction.hover()));
    painter.fillRect(row.rect(), row.isDown() ? tokens.press : hover);

    const double height = row.height();
    const double side = scaled(markSize);
    paintMark(painter, row,
              mirrored(row, QRectF(scaled(markRowEdge), (height - side) / 2, side, side)));

    const Qt::Alignment start =
        QStyle::visualAlignment(row.layoutDirection(), Qt::AlignLeft) | Qt::AlignAbsolute;
    const Qt::Alignment end =
        QStyle::visualAlignment(row.layoutDirection(), Qt::AlignRight) | Qt::AlignAbsolute;
    const QFontMetrics words(font(TypeRole::detail));
    const int wordWidth = detail.isEmpty() ? 0 : words.horizontalAdvance(detail) + 1;
    const int wordStart = row.width() - scaled(markRowEdge) - wordWidth;
    const int titleEnd = wordWidth == 0 ? wordStart : wordStart - scaled(markTitleToDetail);
    const int titleWidth = std::max(0, titleEnd - scaled(markTextStart));
    const QFont titleFont = font(TypeRole::row);
    painter.setFont(titleFont);
    painter.setPen(tokens.ink);
    painter.drawText(mirrored(row, QRectF(scaled(markTextStart), 0, titleWidth, height)),
                     drawFlags(start | Qt::AlignVCenter),
                     QFontMetrics(titleFont).elidedText(row.text(), Qt::ElideRight, titleWidth));
    painter.setFont(font(TypeRole::detail));
    painter.setPen(tokens.second);
    painter.drawText(mirrored(row, QRectF(wordStart, 0, wordWidth, height)),
                     drawFlags(end | Qt::AlignVCenter), detail);
    if (interaction.hasKeyboardFocus()) {
        paintRingInside(painter, {QRectF(row.rect()), markRingRadius * scale()}, tokens.focus);
    }
}

QString placeAmong(int place, int count) {
    return place > 0 ? u"%1 of %2"_s.arg(place).arg(count) : QString();
}

} // namespace

template <typename Button>
MarkRow<Button>::MarkRow(const QString &title, QString detail, QWidget *parent)
    : Button(parent), m_detail(std::move(detail)) {
    setText(title);
    describe();
    this->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

template <typename Button>
void MarkRow<Button>::setText(const QString &title) {
    setLiteralText(*this, title);
}

template <typename Button>
void MarkRow<Button>::setDetail(const QString &detail) {
    m_detail = detail;
    describe();
    this->update();
}

template <typename Button>
void MarkRow<Button>::setPlace(int place, int count) {
    m_place = placeAmong(place, count);
    describe();
}

template <typename Button>
void MarkRow<Button>::describe() {
    QStringList parts{m_detail, m_place};
    parts.removeAll(QString());
    this->setAccessibleDescription(parts.join(u", "_s));
}

template <typename Button>
QSize MarkRow<Button>::sizeHint() const {
    return markRowHint(*this, m_detail);
}

template <typename Button>
QSize MarkRow<Button>::minimumSizeHint() const {
    return leastMarkRow();
}

template <typename Button>
bool MarkRow<Button>::hitButton(const QPoint &point) const {
    return this->rect().contains(point);
}

template <typename Button>
void MarkRow<Button>::paintEvent(QPaintEvent * /*event*/) {
    paintControl(*this, [this](QPainter &painter) {
        paintMarkRow(painter, *this, m_detail, m_interaction);
    });
}

template class MarkRow<QRadioButton>;
template class MarkRow<QCheckBox>;

} // namespace zeph::ui
