// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Glide.h"

#include <QTimer>
#include <QWidget>

class QAbstractScrollArea;
class QScrollBar;

namespace zeph::ui {

/// A thin scroll bar over what it scrolls, so that it takes no width. Seen while the content
/// scrolls or the pointer is over it.
class OverlayBar : public QWidget {
public:
    /// Stands for the vertical bar of `area`, which is switched off.
    explicit OverlayBar(QAbstractScrollArea &area);

    /// The part that is dragged, in the coordinates of this widget; empty where all is in sight.
    QRectF thumb() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void place();
    void showForNow();
    void fadeUnlessHovered();
    double track() const;

    QAbstractScrollArea &m_area;
    QScrollBar &m_bar;
    Glide m_opacity;
    QTimer m_rest;
    double m_grip = -1; ///< where in the thumb it is held; negative when it is not
    bool m_isHovered = false;
};

} // namespace zeph::ui
