// SPDX-License-Identifier: MIT
#include "ui/controls/MarkRow.h"

#include "ui/controls/LiteralText.h"
#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyle>

#include <algorithm>

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

void dressMarkRow(QAbstractButton &row, const QString &detail) {
    row.setAccessibleDescription(detail);
    row.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void describeMarkRow(QAbstractButton &row, const QString &detail, const QString &place) {
    QStringList parts{detail, place};
    parts.removeAll(QString());
    row.setAccessibleDescription(parts.join(u", "_s));
}

QString placeAmong(int place, int count) {
    return place > 0 ? u"%1 of %2"_s.arg(place).arg(count) : QString();
}

} // namespace

RadioRow::RadioRow(const QString &title, const QString &detail, QWidget *parent)
    : QRadioButton(parent), m_detail(detail) {
    setText(title);
    dressMarkRow(*this, detail);
}

void RadioRow::setText(const QString &title) {
    setLiteralText(*this, title);
}

void RadioRow::setDetail(const QString &detail) {
    m_detail = detail;
    describeMarkRow(*this, m_detail, m_place);
    update();
}

void RadioRow::setPlace(int place, int count) {
    m_place = placeAmong(place, count);
    describeMarkRow(*this, m_detail, m_place);
}

QSize RadioRow::sizeHint() const {
    return markRowHint(*this, m_detail);
}

QSize RadioRow::minimumSizeHint() const {
    return leastMarkRow();
}

bool RadioRow::hitButton(const QPoint &point) const {
    return rect().contains(point);
}

void RadioRow::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        paintMarkRow(painter, *this, m_detail, m_interaction);
    });
}

CheckRow::CheckRow(const QString &title, const QString &detail, QWidget *parent)
    : QCheckBox(parent), m_detail(detail) {
    setText(title);
    dressMarkRow(*this, detail);
}

void CheckRow::setText(const QString &title) {
    setLiteralText(*this, title);
}

void CheckRow::setDetail(const QString &detail) {
    m_detail = detail;
    describeMarkRow(*this, m_detail, m_place);
    update();
}

void CheckRow::setPlace(int place, int count) {
    m_place = placeAmong(place, count);
    describeMarkRow(*this, m_detail, m_place);
}

QSize CheckRow::sizeHint() const {
    return markRowHint(*this, m_detail);
}

QSize CheckRow::minimumSizeHint() const {
    return leastMarkRow();
}

bool CheckRow::hitButton(const QPoint &point) const {
    return rect().contains(point);
}

void CheckRow::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        paintMarkRow(painter, *this, m_detail, m_interaction);
    });
}

} // namespace zeph::ui
