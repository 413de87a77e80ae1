// SPDX-License-Identifier: MIT
#include "ui/controls/CalendarSheet.h"

#include "ui/controls/ControlStyle.h"
#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QEvent>
#include <QIcon>
#include <QPainter>
#include <QTableView>
#include <QTextCharFormat>
#include <QToolButton>

#include <algorithm>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double daySize = 28;
constexpr double sheetSymbol = 16;
constexpr double sheetRadius = 12;
constexpr double sheetMargin = 6;

} // namespace

CalendarSheet::CalendarSheet(QWidget &owner) : QCalendarWidget(&owner), m_owner(&owner) {
    setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    setHorizontalHeaderFormat(QCalendarWidget::SingleLetterDayNames);
    setLocale(QLocale(QLocale::English, QLocale::UnitedStates)); // as all of our texts
    setFirstDayOfWeek(QLocale::system().firstDayOfWeek());
    setGridVisible(false);
    setAutoFillBackground(false);
    const int margin = scaled(sheetMargin);
    setContentsMargins(margin, margin, margin, margin);
    ControlStyle::dress(*this);
    for (QWidget *part : findChildren<QWidget *>()) {
        ControlStyle::dress(*part);
    }
}

QSize CalendarSheet::sizeHint() const {
    return {scaled(300), scaled(280)};
}

bool CalendarSheet::event(QEvent *event) {
    if (event->type() == QEvent::ParentChange && window() != m_owner->window()) {
        window()->setAttribute(Qt::WA_TranslucentBackground); // for round corners
    }
    return QCalendarWidget::event(event);
}

void CalendarSheet::showEvent(QShowEvent *event) {
    dress();
    QCalendarWidget::showEvent(event);
}

void CalendarSheet::resizeEvent(QResizeEvent *event) {
    QCalendarWidget::resizeEvent(event);
    cutCorners(*this, sheetRadius * scale());
}

void CalendarSheet::dress() {
    const Look &look = Look::of(*m_owner);
    const Tokens &tokens = look.tokens();
    QPalette colors = tokens.palette(look.appearance());
    for (const auto role : {QPalette::Base, QPalette::AlternateBase, QPalette::Window,
                            QPalette::Highlight}) { // of the bar and of the chosen cell's square
        colors.setColor(role, tokens.menu);
    }
    colors.setColor(QPalette::HighlightedText, tokens.ink);
    setPalette(colors);
    setFont(ui::font(TypeRole::body));

    QTextCharFormat names;
    names.setForeground(tokens.third);
    names.setFont(ui::font(TypeRole::detail));
    setHeaderTextFormat(names);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
        setWeekdayTextFormat(day, names); // not in red
    }
    dressParts();
}

void CalendarSheet::dressParts() {
    if (auto *days = findChild<QTableView *>()) {
        days->viewport()->setAutoFillBackground(false);
    }
    if (auto *bar = findChild<QWidget *>(u"qt_calendar_navigationbar"_s)) {
        bar->setAutoFillBackground(false);
    }
    for (const QString &part : {u"qt_calendar_monthbutton"_s, u"qt_calendar_yearbutton"_s}) {
        if (auto *button = findChild<QToolButton *>(part)) {
            button->setFont(ui::font(TypeRole::button));
        }
    }
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    setTurner(u"qt_calendar_prevmonth"_s, isMirrored, u"Previous month"_s);
    setTurner(u"qt_calendar_nextmonth"_s, !isMirrored, u"Next month"_s);
}

void CalendarSheet::setTurner(const QString &part, bool isToTheRight, const QString &name) {
    auto *button = findChild<QToolButton *>(part);
    if (button == nullptr) {
        return;
    }
    const Look &look = Look::of(*m_owner);
    const int size = scaled(sheetSymbol);
    const QPixmap right = look.symbol(*this, u"chevron.right"_s, size, look.tokens().second);
    button->setIcon(isToTheRight ? right : right.transformed(QTransform::fromScale(-1, 1)));
    button->setIconSize({size, size});
    button->setAccessibleName(name);
    button->setToolTip(name);
}

void CalendarSheet::paintEvent(QPaintEvent *) {
    const Tokens &tokens = Look::of(*m_owner).tokens();
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Rounded shape{rect(), sheetRadius * scale()};
    painter.fillPath(shape.path(), tokens.menu);
    paintHairline(painter, shape, tokens.hair);
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
