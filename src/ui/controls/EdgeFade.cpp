// SPDX-License-Identifier: MIT
#include "ui/controls/EdgeFade.h"

#include "ui/controls/Look.h"
#include "ui/controls/Sky.h"

#include <QPainter>

#include <algorithm>

namespace zeph::ui {

namespace {

constexpr double fadeHeight = 44;

} // namespace

EdgeFade::EdgeFade(Edge edge, QWidget *parent) : QWidget(parent), m_edge(edge) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    hide();
}

void EdgeFade::follow(const QRect &area, int hidden) {
    const int height = std::min({scaled(fadeHeight), hidden, area.height()});
    if (height <= 0) {
        hide();
        return;
    }
    const int y = m_edge == Edge::top ? area.top() : area.bottom() + 1 - height;
    setGeometry(area.x(), y, area.width(), height);
    show();
    raise();
}

void EdgeFade::paintEvent(QPaintEvent *) {
    Sky *sky = Sky::below(*this);
    if (sky == nullptr || Look::of(*this).appearance() == Appearance::highContrast) {
        return;
    }
    const double ratio = devicePixelRatioF();
    QImage strip((QSizeF(size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    strip.setDevicePixelRatio(ratio);
    strip.fill(0);
    QPainter inner(&strip);
    sky->paintPiece(inner, QRect(mapTo(sky, QPoint()), size()));
    inner.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    QLinearGradient gradient(0, 0, 0, height());
    gradient.setColorAt(m_edge == Edge::top ? 0 : 1, Qt::black);
    gradient.setColorAt(m_edge == Edge::top ? 1 : 0, Qt::transparent);
    inner.fillRect(rect(), gradient);
    inner.end();
    QPainter(this).drawImage(0, 0, strip);
}

} // namespace zeph::ui
