// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

class QHBoxLayout;

namespace zeph::ui {

class EdgeFade;

/// The one scroll area of a pane, its header included. What scrolls out fades at the edges; the
/// row with the focus is kept in sight.
class PaneScroll : public QScrollArea {
public:
    /// Takes `content`, whose column it centres and keeps between its least and its most width.
    explicit PaneScroll(QWidget *content, QWidget *parent = nullptr);

    /// Brings `widget` into view with some room around it.
    void reveal(QWidget *widget);

protected:
    bool focusNextPrevChild(bool next) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    void followFocus(QWidget *focused);
    void placeFades();

    QWidget *m_content;
    QHBoxLayout *m_sides;
    EdgeFade *m_top;
    EdgeFade *m_bottom;
};

} // namespace zeph::ui
