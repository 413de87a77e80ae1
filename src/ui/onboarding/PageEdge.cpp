// SPDX-License-Identifier: MIT
#include "ui/onboarding/PageEdge.h"

#include "ui/controls/Look.h"

#include <QEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

#include <algorithm>

namespace zeph::ui {

namespace {

constexpr double edgeHeight = 44;

} // namespace

PageEdge::PageEdge(Edge edge, QScrollArea &page, PaintSky paintSky, QWidget *parent)
    : QWidget(parent), m_edge(edge), m_page(page), m_paintSky(std::move(paintSky)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
    const QScrollBar *bar = page.verticalScrollBar();
    connect(bar, &QScrollBar::valueChanged, this, [this] { follow(); });
    connect(bar, &QScrollBar::rangeChanged, this, [this] { follow(); });
    page.installEventFilter(this);
}

bool PageEdge::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move) {
        follow();
    }
    return QWidget::eventFilter(watched, event);
}

/// As high as there is something hidden, so that the last line of a page never fades.
void PageEdge::follow() {
    const QScrollBar &bar = *m_page.verticalScrollBar();
    const bool isTop = m_edge == Edge::top;
    const int hidden = isTop ? bar.value() - bar.minimum() : bar.maximum() - bar.value();
    const int high = std::min(scaled(edgeHeight), hidden);
    const QRect area = m_page.geometry();
    setGeometry(area.x(), isTop ? area.y() : area.bottom() + 1 - high, area.width(), high);
    setVisible(high > 0);
    raise();
}

void PageEdge::paintEvent(QPaintEvent *) {
    const double ratio = devicePixelRatioF();
    QImage strip((QSizeF(size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    strip.setDevicePixelRatio(ratio);
    strip.fill(Qt::transparent);
    QPainter painter(&strip);
    painter.translate(-pos());
    m_paintSky(painter);
    painter.resetTransform();
    QLinearGradient fading(0, 0, 0, height());
    fading.setColorAt(m_edge == Edge::top ? 0 : 1, Qt::black);
    fading.setColorAt(m_edge == Edge::top ? 1 : 0, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.fillRect(rect(), fading);
    painter.end();
    QPainter(this).drawImage(0, 0, strip);
}

} // namespace zeph::ui
