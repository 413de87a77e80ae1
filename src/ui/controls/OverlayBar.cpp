// SPDX-License-Identifier: MIT
#include "ui/controls/OverlayBar.h"

#include "ui/controls/Look.h"
#include "ui/controls/Paint.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>

#include <algorithm>
#include <cmath>

namespace zeph::ui {

namespace {

constexpr double overlayWidth = 5;
constexpr double overlayToEdge = 5;
constexpr double overlayTarget = 16;
constexpr double overlayToEnds = 12;
constexpr double leastOverlayThumb = 36;
constexpr std::chrono::milliseconds overlayFading(160);
constexpr std::chrono::milliseconds seenAfterScrolling(1000);

} // namespace

OverlayBar::OverlayBar(QAbstractScrollArea &area)
    : QWidget(&area),
      m_area(area),
      m_bar(*area.verticalScrollBar()),
      m_opacity(*this, overlayFading) {
    area.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area.installEventFilter(this);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    m_rest.setSingleShot(true);
    m_rest.setInterval(seenAfterScrolling);
    connect(&m_rest, &QTimer::timeout, this, [this] { fadeUnlessHovered(); });
    connect(&m_bar, &QScrollBar::valueChanged, this, [this] { showForNow(); });
    connect(&m_bar, &QScrollBar::rangeChanged, this, [this] { place(); });
    place();
}

void OverlayBar::place() {
    const int width = scaled(overlayTarget);
    const bool isMirrored = m_area.layoutDirection() == Qt::RightToLeft;
    setGeometry(isMirrored ? 0 : m_area.width() - width, 0, width, m_area.height());
    setVisible(m_bar.maximum() > m_bar.minimum());
    raise();
    update();
}

double OverlayBar::track() const {
    return std::max(0.0, height() - 2 * overlayToEnds * scale());
}

QRectF OverlayBar::thumb() const {
    const double range = m_bar.maximum() - m_bar.minimum();
    if (range <= 0) {
        return {};
    }
    const double part = m_bar.pageStep() / (range + m_bar.pageStep());
    const double length = std::min(track(), std::max(leastOverlayThumb * scale(), track() * part));
    const double y =
        overlayToEnds * scale() + (track() - length) * (m_bar.value() - m_bar.minimum()) / range;
    return mirrored(*this, {width() - (overlayToEdge + overlayWidth) * scale(), y,
                            overlayWidth * scale(), length});
}

void OverlayBar::showForNow() {
    m_opacity.to(1);
    m_rest.start();
    update();
}

void OverlayBar::fadeUnlessHovered() {
    if (!m_isHovered && m_grip < 0 && !m_rest.isActive()) {
        m_opacity.to(0);
    }
}

bool OverlayBar::eventFilter(QObject *watched, QEvent *event) {
    switch (event->type()) {
    case QEvent::Resize:
    case QEvent::LayoutDirectionChange:
        place();
        break;
    case QEvent::Enter:
        m_isHovered = true;
        m_opacity.to(1);
        break;
    case QEvent::Leave:
        m_isHovered = false;
        fadeUnlessHovered();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void OverlayBar::mousePressEvent(QMouseEvent *event) {
    const QRectF held = thumb();
    const double y = event->position().y();
    if (y >= held.top() && y <= held.bottom()) {
        m_grip = y - held.top();
        return;
    }
    m_bar.triggerAction(y < held.top() ? QAbstractSlider::SliderPageStepSub
                                       : QAbstractSlider::SliderPageStepAdd);
}

void OverlayBar::mouseMoveEvent(QMouseEvent *event) {
    const double free = track() - thumb().height();
    if (m_grip < 0 || free <= 0) {
        return;
    }
    const double part = (event->position().y() - m_grip - overlayToEnds * scale()) / free;
    m_bar.setValue(m_bar.minimum() +
                   static_cast<int>(std::lround(part * (m_bar.maximum() - m_bar.minimum()))));
}

void OverlayBar::mouseReleaseEvent(QMouseEvent *) {
    m_grip = -1;
    fadeUnlessHovered();
}

void OverlayBar::wheelEvent(QWheelEvent *event) {
    QCoreApplication::sendEvent(&m_bar, event);
}

void OverlayBar::paintEvent(QPaintEvent *) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_opacity.value());
    painter.setPen(Qt::NoPen);
    painter.fillPath(pill(thumb()).path(), Look::of(*this).tokens().edge);
}

} // namespace zeph::ui
