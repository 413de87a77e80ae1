// SPDX-License-Identifier: MIT
#pragma once

#include <QPainterPath>
#include <QProxyStyle>

namespace zeph::ui {

/// Draws a menu in the look of the menu's window.
class TrayMenuStyle : public QProxyStyle {
public:
    TrayMenuStyle();

    /// How wide the toolkit takes the widest key for, which it adds to every row.
    void setKeyWidth(int width) { m_keyWidth = width; }

    int pixelMetric(PixelMetric metric, const QStyleOption *option,
                    const QWidget *widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;

private:
    int m_keyWidth = 0;
};

/// The outline of a menu with these bounds.
QPainterPath trayMenuOutline(const QRectF &bounds);

} // namespace zeph::ui
