// SPDX-License-Identifier: MIT
#include "ui/controls/PaneScroll.h"

#include "ui/controls/Card.h"
#include "ui/controls/EdgeFade.h"
#include "ui/controls/Look.h"
#include "ui/controls/OverlayBar.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QScrollBar>

#include <algorithm>

namespace zeph::ui {

namespace {

constexpr double widestColumn = 640;
constexpr double leastSide = 36;
constexpr double roomToSpare = 24;
constexpr double wheelStep = 20;

/// The row of a card that `widget` stands in, or else `widget` itself.
QWidget *rowOf(QWidget *widget) {
    for (QWidget *row = widget; row != nullptr && !row->isWindow(); row = row->parentWidget()) {
        if (dynamic_cast<Card *>(row->parentWidget()) != nullptr) {
            return row;
        }
    }
    return widget;
}

} // namespace

PaneScroll::PaneScroll(QWidget *content, QWidget *parent)
    : QScrollArea(parent),
      m_content(content),
      m_top(new EdgeFade(EdgeFade::Edge::top, this)),
      m_bottom(new EdgeFade(EdgeFade::Edge::bottom, this)) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    auto *holder = new QWidget;
    m_sides = new QHBoxLayout(holder);
    m_sides->setContentsMargins(scaled(leastSide), 0, scaled(leastSide), 0);
    m_sides->addWidget(content);
    setWidget(holder);
    viewport()->setAutoFillBackground(false);
    holder->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
    verticalScrollBar()->setSingleStep(scaled(wheelStep));
    new OverlayBar(*this);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget *, QWidget *now) { followFocus(now); });
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { placeFades(); });
}

void PaneScroll::reveal(QWidget *widget) {
    ensureWidgetVisible(widget, 0, scaled(roomToSpare));
}

/// What is clicked is in sight, and must not move under the pointer.
void PaneScroll::followFocus(QWidget *focused) {
    if (focused != nullptr && m_content->isAncestorOf(focused) &&
        QGuiApplication::mouseButtons() == Qt::NoButton) {
        reveal(rowOf(focused));
    }
}

/// The stock area would bring what has the focus into view by its own measure.
bool PaneScroll::focusNextPrevChild(bool next) {
    return QWidget::focusNextPrevChild(next); // NOLINT(bugprone-parent-virtual-call)
}

void PaneScroll::resizeEvent(QResizeEvent *event) {
    const int side = std::max(scaled(leastSide), (width() - scaled(widestColumn)) / 2);
    m_sides->setContentsMargins(side, 0, side, 0);
    QScrollArea::resizeEvent(event);
    placeFades();
}

void PaneScroll::scrollContentsBy(int dx, int dy) {
    QScrollArea::scrollContentsBy(dx, dy);
    placeFades();
}

void PaneScroll::placeFades() {
    const QScrollBar &bar = *verticalScrollBar();
    m_top->follow(rect(), bar.value() - bar.minimum());
    m_bottom->follow(rect(), bar.maximum() - bar.value());
}

} // namespace zeph::ui
