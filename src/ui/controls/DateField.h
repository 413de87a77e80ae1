// SPDX-License-Identifier: MIT
#pragma once

#include <QDateEdit>

namespace zeph::ui {

/// A day, typed or picked from a calendar that opens. The wheel scrolls the pane instead.
class DateField : public QDateEdit {
public:
    explicit DateField(QDate date, QWidget *parent = nullptr);

protected:
    void wheelEvent(QWheelEvent *event) override;
};

} // namespace zeph::ui
