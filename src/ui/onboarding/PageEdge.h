// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

#include <functional>

class QScrollArea;

namespace zeph::ui {

/// Where a page is longer than its room, lets it fade into the sky at an edge instead of cutting it
/// off. Clicks go through.
class PageEdge : public QWidget {
public:
    enum class Edge { top, bottom };
    /// Paints what lies behind the page, in the coordinates of the parent.
    using PaintSky = std::function<void(QPainter &)>;

    /// Over the edge of `page`, a child of `parent`.
    PageEdge(Edge edge, QScrollArea &page, PaintSky paintSky, QWidget *parent);

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void follow();

    Edge m_edge;
    QScrollArea &m_page;
    PaintSky m_paintSky;
};

} // namespace zeph::ui
