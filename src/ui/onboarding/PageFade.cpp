// SPDX-License-Identifier: MIT
#include "ui/onboarding/PageFade.h"

#include "ui/controls/Look.h"

#include <QGraphicsOpacityEffect>
#include <QPainter>

namespace zeph::ui {

namespace {

constexpr std::chrono::milliseconds pageMotion{250};

} // namespace

PageFade::PageFade(QWidget *parent) : QWidget(parent) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    m_animation.setStartValue(0.0);
    m_animation.setEndValue(1.0);
    m_animation.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_animation, &QVariantAnimation::valueChanged, this,
            [this](const QVariant &value) { bring(value.toDouble()); });
    connect(&m_animation, &QVariantAnimation::finished, this, [this] { end(); });
}

QPixmap PageFade::pictureOf(QWidget &page) {
    const double ratio = page.devicePixelRatioF();
    QPixmap picture((QSizeF(page.size()) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    page.render(&picture, {}, {}, QWidget::DrawChildren);
    return picture;
}

void PageFade::start(const QPixmap &before, const QRect &area, QWidget &after) {
    end();
    const auto duration = Look::of(*this).duration(pageMotion);
    if (duration.count() == 0 || !parentWidget()->isVisible()) {
        return;
    }
    m_before = before;
    m_after = &after;
    // The page owns the effect, so that both end together.
    after.setGraphicsEffect(new QGraphicsOpacityEffect(&after));
    setGeometry(area);
    raise();
    setVisible(true);
    m_animation.setDuration(static_cast<int>(duration.count()));
    m_animation.start();
}

void PageFade::bring(double arrived) {
    if (m_after != nullptr) {
        auto *effect = static_cast<QGraphicsOpacityEffect *>(m_after->graphicsEffect());
        effect->setOpacity(arrived);
    }
    update();
}

void PageFade::end() {
    m_animation.stop();
    if (m_after != nullptr) {
        m_after->setGraphicsEffect(nullptr);
    }
    m_after = nullptr;
    m_before = QPixmap();
    hide();
}

void PageFade::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setOpacity(1 - m_animation.currentValue().toDouble());
    painter.drawPixmap(0, 0, m_before);
}

} // namespace zeph::ui
