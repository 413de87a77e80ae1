// SPDX-License-Identifier: MIT
#include "ui/settings/SearchField.h"

#include "ui/controls/Look.h"

#include <QPainter>
#include <QStyle>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double searchHeight = 34;
constexpr double lensStart = 12;
constexpr double lensSize = 16;
constexpr double lensToText = 8;
constexpr double searchRing = 2;

} // namespace

SearchField::SearchField(QWidget *parent) : QLineEdit(parent) {
    setFrame(false);
    setFixedHeight(scaled(searchHeight));
    setPlaceholderText(u"Search"_s);
    setAccessibleName(u"Search the settings"_s);
    QPalette see = palette();
    see.setColor(QPalette::Base, Qt::transparent); // painted below instead
    setPalette(see);
    setTextMargins(scaled(lensStart + lensSize + lensToText) - 2, 0, scaled(lensStart), 0);
}

QSize SearchField::sizeHint() const {
    return {scaled(180), scaled(searchHeight)};
}

void SearchField::paintEvent(QPaintEvent *event) {
    const Look &look = Look::of(*this);
    const Tokens &tokens = look.tokens();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() ? QPen(tokens.focus, scaled(searchRing)) : QPen(Qt::NoPen));
    painter.setBrush(tokens.fill);
    const double inset = hasFocus() ? scaled(searchRing) / 2.0 : 0;
    const QRectF shape = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    painter.drawRoundedRect(shape, shape.height() / 2, shape.height() / 2);
    const int side = scaled(lensSize);
    const QRect lens(scaled(lensStart), (height() - side) / 2, side, side);
    const QRect placed = QStyle::visualRect(layoutDirection(), rect(), lens);
    painter.drawPixmap(placed.topLeft(),
                       look.symbol(*this, u"magnifyingglass"_s, side, tokens.third));
    painter.end();
    QLineEdit::paintEvent(event);
}

} // namespace zeph::ui
