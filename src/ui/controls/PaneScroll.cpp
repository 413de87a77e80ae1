// SPDX-License-Identifier: MIT
#include "ui/controls/PaneScroll.h"

#include "ui/controls/Look.h"

namespace zeph::ui {

PaneScroll::PaneScroll(QWidget *content, QWidget *parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setWidget(content);
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

void PaneScroll::reveal(QWidget *widget) {
    ensureWidgetVisible(widget, 0, scaled(24));
}

} // namespace zeph::ui
