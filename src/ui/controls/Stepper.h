// SPDX-License-Identifier: MIT
#pragma once

#include <QSpinBox>

namespace zeph::ui {

/// One less, one more; the number itself stands in the title of the row. The wheel scrolls the
/// pane instead.
class Stepper : public QSpinBox {
public:
    Stepper(int least, int most, QWidget *parent = nullptr);

protected:
    void wheelEvent(QWheelEvent *event) override;
};

} // namespace zeph::ui
