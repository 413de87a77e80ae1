// SPDX-License-Identifier: MIT
#include "ui/controls/DateField.h"

#include "ui/controls/CalendarSheet.h"
#include "ui/controls/ControlStyle.h"
#include "ui/controls/Look.h"
#include "ui/controls/TextField.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <cmath>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double calendarSymbol = 16;
constexpr double calendarInset = 19; // of its centre from the trailing edge
constexpr double dateRoom = 62;      // beside the text

} // namespace

DateField::DateField(QDate date, QWidget *parent)
    : QDateEdit(date, parent), m_calendar(new CalendarSheet(*this)) {
    ControlStyle::dress(*this);
    ControlStyle::dress(*lineEdit());
    setFrame(false);
    setFont(ui::font(TypeRole::body));
    setFocusPolicy(Qt::StrongFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setLocale(QLocale(QLocale::English, QLocale::UnitedStates)); // as all of our texts
    setDisplayFormat(u"MMM d, yyyy"_s);
    setCalendarPopup(true);
    setCalendarWidget(m_calendar);
    lineEdit()->setFrame(false);
}

void DateField::setToday(QDate today) {
    m_calendar->setToday(today);
}

QSize DateField::sizeHint() const {
    const QFontMetricsF metrics(ui::font(TypeRole::body));
    const double wide = metrics.horizontalAdvance(u"Mmm 00, 0000"_s);
    return {static_cast<int>(std::ceil(wide)) + scaled(dateRoom), scaled(36)};
}

void DateField::wheelEvent(QWheelEvent *event) {
    event->ignore();
}

void DateField::keyPressEvent(QKeyEvent *event) {
    const bool isAltDown =
        event->key() == Qt::Key_Down && event->modifiers().testFlag(Qt::AltModifier);
    if (isAltDown || event->key() == Qt::Key_F4) {
        openCalendar();
        return;
    }
    QDateEdit::keyPressEvent(event);
}

void DateField::openCalendar() {
    // The toolkit opens it for a press on its arrow, and has no other way to ask for it.
    const QPoint place(layoutDirection() == Qt::RightToLeft ? scaled(calendarInset)
                                                            : width() - scaled(calendarInset),
                       height() / 2);
    QMouseEvent press(QEvent::MouseButtonPress, place, mapToGlobal(place), Qt::LeftButton,
                      Qt::LeftButton, Qt::NoModifier);
    QDateEdit::mousePressEvent(&press);
}

void DateField::paintEvent(QPaintEvent *) {
    paintControl(*this, [this](QPainter &painter) {
        const Tokens &tokens = Look::of(*this).tokens();
        const double hover = m_interaction.hover();
        paintField(painter, *this, {hover, hasFocus(), false});
        const double size = scaled(calendarSymbol);
        const QRectF place(width() - scaled(calendarInset) - size / 2, (height() - size) / 2, size,
                           size);
        paintSymbol(painter, *this, u"calendar"_s, mirrored(*this, place),
                    blend(tokens.second, tokens.ink, hover));
    });
}

} // namespace zeph::ui
