// SPDX-License-Identifier: MIT
#pragma once

#include <QSlider>

namespace zeph::ui {

/// 0 to 100, with the value as a percentage at its end. The wheel scrolls the pane instead.
class PercentSlider : public QSlider {
public:
    explicit PercentSlider(QWidget *parent = nullptr);

protected:
    void wheelEvent(QWheelEvent *event) override;
};

} // namespace zeph::ui
