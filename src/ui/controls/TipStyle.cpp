// SPDX-License-Identifier: MIT
#include "ui/controls/TipStyle.h"

#include "ui/controls/Look.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOption>

namespace zeph::ui {

namespace {

constexpr double tipRadius = 8;
constexpr double tipPadding = 7; // the toolkit adds one

QPainterPath tipShape(const QRect &whole) {
    QPainterPath path;
    path.addRoundedRect(whole, scaled(tipRadius), scaled(tipRadius));
    return path;
}

} // namespace

void TipStyle::install() {
    if (dynamic_cast<TipStyle *>(QApplication::style()) == nullptr) {
        QApplication::setStyle(new TipStyle);
    }
}

void TipStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                             QPainter *painter, const QWidget *widget) const {
    if (element == PE_PanelTipLabel) {
        painter->fillRect(option->rect, option->palette.toolTipBase()); // cut by the mask
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
}

int TipStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                        QStyleHintReturn *data) const {
    auto *const mask = qstyleoption_cast<QStyleHintReturnMask *>(data);
    if (hint != SH_ToolTip_Mask || option == nullptr || mask == nullptr) {
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
    mask->region = QRegion(tipShape(option->rect).toFillPolygon().toPolygon());
    return 1;
}

int TipStyle::pixelMetric(PixelMetric metric, const QStyleOption *option,
                          const QWidget *widget) const {
    return metric == PM_ToolTipLabelFrameWidth ? scaled(tipPadding)
                                               : QProxyStyle::pixelMetric(metric, option, widget);
}

} // namespace zeph::ui
