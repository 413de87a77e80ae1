// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QSlider>

namespace zeph::ui {

/// 0 to 100, with the value as a percentage at its end. The wheel scrolls the pane instead.
class PercentSlider : public QSlider {
public:
    explicit PercentSlider(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void wheelEvent(QWheelEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void sliderChange(SliderChange change) override;

private:
    QRectF track() const;  ///< from left to right
    double knobAt() const; ///< its centre, from left to right
    Rounded knob() const;  ///< as it lies in the widget
    int valueAt(double x) const;

    Interaction m_interaction{*this, [this] { return knob(); }};
    double m_grip = 0; ///< how far beside the knob's centre it is held
};

} // namespace zeph::ui
