// SPDX-License-Identifier: MIT
#pragma once

#include <QVariantAnimation>

#include <chrono>

class QWidget;

namespace zeph::ui {

/// A number that glides to where it should be, slowing down, and repaints its widget on the way. It
/// jumps when there is to be no motion, and while nobody sees the widget.
class Glide {
public:
    Glide(QWidget &widget, std::chrono::milliseconds duration);

    void to(double target);
    void jump(double target);

    double value() const { return m_value; }
    double target() const { return m_target; }

private:
    QWidget *m_widget;
    std::chrono::milliseconds m_duration;
    double m_value = 0;
    double m_target = 0;
    QVariantAnimation m_animation;
};

} // namespace zeph::ui
