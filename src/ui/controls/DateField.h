// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QDateEdit>

namespace zeph::ui {

class CalendarSheet;

/// A day, typed or picked from a calendar that opens. The wheel scrolls the pane instead.
class DateField : public QDateEdit {
public:
    explicit DateField(QDate date, QWidget *parent = nullptr);

    /// The day that the calendar marks as today; none unless told.
    void setToday(QDate today);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void openCalendar();

    CalendarSheet *m_calendar;
    // The edge shows the focus by itself.
    Interaction m_interaction{*this};
};

} // namespace zeph::ui
