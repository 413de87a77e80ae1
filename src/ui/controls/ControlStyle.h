// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace zeph::ui {

/// What our fields and boxes, which paint themselves, still ask a style for: where their parts are.
/// The same on every desktop, whatever its own style.
class ControlStyle : public QProxyStyle {
public:
    /// Gives `widget` such a style, which lives as long as it.
    static void dress(QWidget &widget);
    static int textCursorWidth();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
                         const QWidget *widget) const override;

private:
    ControlStyle();
};

} // namespace zeph::ui
