// SPDX-License-Identifier: MIT
#include "ui/settings/CrossFade.h"

#include "ui/controls/Look.h"

#include <QPainter>

namespace zeph::ui {

namespace {

constexpr std::chrono::milliseconds paneChange{120};

} // namespace

CrossFade::CrossFade(QWidget *parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    m_animation.setStartValue(1.0);
    m_animation.setEndValue(0.0);
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(&m_animation, &QVariantAnimation::finished, this, [this] {
        hide();
        m_before = QPixmap();
    });
}

void CrossFade::start(const QRect &area) {
    const auto duration = Look::of(*this).duration(paneChange);
    if (duration.count() == 0 || !parentWidget()->isVisible()) {
        return;
    }
    m_animation.stop();
    hide();
    m_before = parentWidget()->grab(area);
    setGeometry(area);
    raise();
    show();
    m_animation.setDuration(static_cast<int>(duration.count()));
    m_animation.start();
}

void CrossFade::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setOpacity(m_animation.currentValue().toDouble());
    painter.drawPixmap(0, 0, m_before);
}

} // namespace zeph::ui
