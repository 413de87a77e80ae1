// SPDX-License-Identifier: MIT
#include "ui/controls/Ring.h"

#include "ui/controls/Look.h"

#include <QPainter>
#include <QProxyStyle>

#include <cmath>

namespace zeph::ui {

namespace {

constexpr double shapeReach = 8; // of a shape beyond its control, at most

/// Lays the frame above everything up to the window, so that no layout cuts it off, and leaves it
/// whole, since the ring of a small shape lies within its control.
class RingStyle : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override {
        switch (hint) {
        case SH_FocusFrame_AboveWidget:
            return 1;
        case SH_FocusFrame_Mask:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, data);
        }
    }

    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override {
        switch (metric) {
        case PM_FocusFrameHMargin:
        case PM_FocusFrameVMargin:
            return static_cast<int>(std::ceil(ringReach() + shapeReach * scale()));
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }
};

} // namespace

Ring::Ring(QWidget &control, std::function<Rounded()> shape, std::function<QColor()> color)
    : QFocusFrame(&control), m_shape(std::move(shape)), m_color(std::move(color)) {
    auto *style = new RingStyle;
    style->setParent(this);
    setStyle(style);
    setWidget(&control);
}

void Ring::paintEvent(QPaintEvent *) {
    if (widget() == nullptr) {
        return;
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(widget()->mapTo(parentWidget(), QPoint(0, 0)) - pos());
    if (const Rounded shape = m_shape(); !shape.rect.isEmpty()) {
        paintRing(painter, shape, m_color());
    }
}

} // namespace zeph::ui
