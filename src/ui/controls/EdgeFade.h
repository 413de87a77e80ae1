// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

namespace zeph::ui {

/// Lets what is scrolled fade out at the upper or lower edge. As everything lies on the sky, that
/// is the sky over it, thicker and thicker towards the edge; clicks go through.
class EdgeFade : public QWidget {
public:
    enum class Edge { top, bottom };

    EdgeFade(Edge edge, QWidget *parent);

    /// Lies at its edge of `area`, and fades as much of it as there is `hidden` beyond the edge:
    /// all of its height from that on, nothing at 0.
    void follow(const QRect &area, int hidden);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Edge m_edge;
};

} // namespace zeph::ui
