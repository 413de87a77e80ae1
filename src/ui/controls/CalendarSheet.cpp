// SPDX-License-Identifier: MIT
#include "ui/controls/CalendarSheet.h"

#include "ui/controls/ControlStyle.h"
#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QIcon>
#include <QPainter>
#include <QTextCharFormat>
#include <QToolButton>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double daySize = 28;
constexpr double sheetSymbol = 16;

} // namespace

CalendarSheet::CalendarSheet(QWidget &owner) : QCalendarWidget(&owner), m_owner(&owner) {
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    setFirstDayOfWeek(QLocale::system().firstDayOfWeek());
    setGridVisible(false);
    ControlStyle::dress(*this);
    for (QWidget *part : findChildren<QWidget *>()) {
        ControlStyle::dress(*part);
    }
}

void CalendarSheet::showEvent(QShowEvent *event) {
    dress();
    QCalendarWidget::showEvent(event);
}

void CalendarSheet::dress() {
    const Look &look = Look::of(*m_owner);
    const Tokens &tokens = look.tokens();
    QPalette colors = tokens.palette(look.appearance());
    colors.setColor(QPalette::Base, tokens.menu);
    colors.setColor(QPalette::AlternateBase, tokens.menu);
    colors.setColor(QPalette::Window, tokens.menu);
    setPalette(colors);
    setFont(ui::font(TypeRole::body));

    QTextCharFormat names;
    names.setForeground(tokens.third);
    names.setFont(ui::font(TypeRole::detail));
    setHeaderTextFormat(names);
    QTextCharFormat days;
    days.setForeground(tokens.ink);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
        setWeekdayTextFormat(day, days); // not in red
    }
    setTurner(u"qt_calendar_prevmonth"_s, u"chevron.left"_s, u"Previous month"_s);
    setTurner(u"qt_calendar_nextmonth"_s, u"chevron.right"_s, u"Next month"_s);
}

void CalendarSheet::setTurner(const QString &part, const QString &symbol, const QString &name) {
    auto *button = findChild<QToolButton *>(part);
    if (button == nullptr) {
        return;
    }
    const Look &look = Look::of(*m_owner);
    const int size = scaled(sheetSymbol);
    button->setIcon(look.symbol(*this, symbol, size, look.tokens().second));
    button->setIconSize({size, size});
    button->setAccessibleName(name);
    button->setToolTip(name);
}

void CalendarSheet::paintCell(QPainter *painter, const QRect &rect, QDate date) const {
    const Tokens &tokens = Look::of(*m_owner).tokens();
    const double size = std::min({scaled(daySize), rect.width(), rect.height()});
    QRectF place(0, 0, size, size);
    place.moveCenter(QRectF(rect).center());
    const bool isChosen = date == selectedDate();
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (isChosen) {
        painter->fillPath(pill(place).path(), tokens.accent);
    } else if (date == m_today) {
        strokeInside(*painter, pill(place), 1.5 * scale(), tokens.edge);
    }
    const bool isOfMonth = date.month() == monthShown() && date.year() == yearShown();
    painter->setFont(ui::font(isChosen ? TypeRole::button : TypeRole::segment));
    painter->setPen(isChosen ? tokens.onAccent : isOfMonth ? tokens.ink : tokens.third);
    painter->drawText(QRectF(rect), Qt::AlignCenter, QString::number(date.day()));
    painter->restore();
}

} // namespace zeph::ui
