// SPDX-License-Identifier: MIT
#pragma once

#include <QProxyStyle>

namespace zeph::ui {

/// The application's style, with tooltips as round as the rest of our windows. Their colours and
/// their font are those of the window that was dressed last.
class TipStyle : public QProxyStyle {
public:
    /// Makes it the application's, once. To be called before a window of ours is made.
    static void install();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
};

} // namespace zeph::ui
