// SPDX-License-Identifier: MIT
#pragma once

#include <QScrollArea>

namespace zeph::ui {

/// The one scroll area of a pane, its header included. What scrolls out fades at the edges; the
/// row with the focus is kept in sight.
class PaneScroll : public QScrollArea {
public:
    /// Takes `content`, whose column it centres and keeps between its least and its most width.
    explicit PaneScroll(QWidget *content, QWidget *parent = nullptr);

    /// Brings `widget` into view with some room around it.
    void reveal(QWidget *widget);
};

} // namespace zeph::ui
