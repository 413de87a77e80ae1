// SPDX-License-Identifier: MIT
#include "ui/controls/Glide.h"

#include "ui/controls/Look.h"

#include <QWidget>

namespace zeph::ui {

Glide::Glide(QWidget &widget, std::chrono::milliseconds duration)
    : m_widget(&widget), m_duration(duration) {
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    QObject::connect(&m_animation, &QVariantAnimation::valueChanged, &m_animation,
                     [this](const QVariant &value) {
                         m_value = value.toDouble();
                         m_widget->update();
                     });
}

void Glide::to(double target) {
    if (target == m_target) {
        return;
    }
    const auto duration = Look::of(*m_widget).duration(m_duration);
    if (!m_widget->isVisible() || duration <= std::chrono::milliseconds(0)) {
        jump(target);
        return;
    }
    m_target = target;
    m_animation.stop();
    m_animation.setStartValue(m_value);
    m_animation.setEndValue(target);
    m_animation.setDuration(static_cast<int>(duration.count()));
    m_animation.start();
}

void Glide::jump(double target) {
    m_animation.stop();
    m_value = target;
    m_target = target;
    m_widget->update();
}

} // namespace zeph::ui
