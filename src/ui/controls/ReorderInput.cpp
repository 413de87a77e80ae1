// SPDX-License-Identifier: MIT
#include "ui/controls/LiftedRow.h"
#include "ui/controls/Look.h"
#include "ui/controls/ReorderList.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace zeph::ui {

namespace {

constexpr double edgeZone = 32;
constexpr double edgeSpeed = 6; // logical pixels a tick at the very edge

/// Also where the row is current already.
bool leadsToARow(int key) {
    constexpr std::array keys{Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Home,
                              Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown};
    return std::find(keys.begin(), keys.end(), key) != keys.end();
}

} // namespace

bool ReorderList::event(QEvent *event) {
    // Before the window takes Escape and Alt with an arrow for itself.
    if (event->type() == QEvent::ShortcutOverride) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (m_hand && key == Qt::Key_Escape) {
            event->accept();
            return true;
        }
    }
    if (event->type() == QEvent::Hide && m_hand) {
        putBack();
    }
    return QListWidget::event(event);
}

void ReorderList::focusInEvent(QFocusEvent *event) {
    QListWidget::focusInEvent(event);
    if (bringsIntoView(event->reason())) {
        revealCurrent();
    }
}

void ReorderList::focusOutEvent(QFocusEvent *event) {
    if (m_hand && !m_hand->isByMouse) {
        putBack();
    }
    QListWidget::focusOutEvent(event);
}

bool ReorderList::handleKey(const QKeyEvent &event) {
    const int at = m_hand ? m_hand->place : currentRow();
    const bool isUpOrDown = event.key() == Qt::Key_Up || event.key() == Qt::Key_Down;
    const int next = event.key() == Qt::Key_Up ? at - 1 : at + 1;
    if (event.key() == Qt::Key_Space) {
        m_hand ? drop() : lift(currentRow(), false);
        return true;
    }
    if (!m_hand) {
        if (isUpOrDown && (event.modifiers() & Qt::AltModifier) != 0) {
            if (at >= 0 && next >= 0 && next < count()) {
                carry(at, next);
            }
            return true;
        }
        return false;
    }
    switch (event.key()) {
    case Qt::Key_Escape:
        putBack();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        drop();
        return true;
    case Qt::Key_Home:
        moveHand(0);
        return true;
    case Qt::Key_End:
        moveHand(count() - 1);
        return true;
    default:
        break;
    }
    if (isUpOrDown) {
        moveHand(next);
    }
    return isUpOrDown;
}

void ReorderList::keyPressEvent(QKeyEvent *event) {
    if (handleKey(*event)) {
        event->accept();
        return;
    }
    const int before = currentRow();
    QListWidget::keyPressEvent(event);
    if (!m_hand && (currentRow() != before || leadsToARow(event->key()))) {
        revealCurrent();
    }
    viewport()->update();
}

void ReorderList::mousePressEvent(QMouseEvent *event) {
    if (m_hand && !m_hand->isByMouse) {
        putBack();
    }
    QListWidget::mousePressEvent(event);
    if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid()) {
        m_pressedAt = event->pos();
    }
}

void ReorderList::mouseMoveEvent(QMouseEvent *event) {
    m_pointer = event->pos();
    if (m_pressedAt && !m_hand &&
        (m_pointer - *m_pressedAt).manhattanLength() >= QApplication::startDragDistance()) {
        const int row = indexAt(*m_pressedAt).row();
        m_grip = m_pressedAt->y() + verticalScrollBar()->value() - row * rowHeight();
        lift(row, true);
        m_edgeTimer.start();
    }
    if (m_hand && m_hand->isByMouse) {
        followPointer();
        return;
    }
    const int hovered = indexAt(m_pointer).row();
    if (std::exchange(m_hovered, hovered) != hovered) {
        viewport()->update();
    }
}

void ReorderList::mouseReleaseEvent(QMouseEvent *event) {
    m_pressedAt.reset();
    if (m_hand && m_hand->isByMouse) {
        drop();
        return;
    }
    QListWidget::mouseReleaseEvent(event);
}

void ReorderList::leaveEvent(QEvent *event) {
    QListWidget::leaveEvent(event);
    m_hovered = -1;
    viewport()->update();
}

void ReorderList::followPointer() {
    const double top = m_pointer.y() - m_grip + verticalScrollBar()->value();
    const double middle = top + rowHeight() / 2.0;
    moveHand(static_cast<int>(std::floor(middle / rowHeight())));
    placeLifted();
}

void ReorderList::scrollAtEdge() {
    const int zone = scaled(edgeZone);
    const int above = zone - m_pointer.y();
    const int below = m_pointer.y() - (viewport()->height() - zone);
    const double part = std::clamp(static_cast<double>(std::max(above, below)) / zone, 0.0, 1.0);
    const int step = static_cast<int>(std::lround(part * edgeSpeed * scale()));
    QScrollBar &bar = *verticalScrollBar();
    const int before = bar.value();
    bar.setValue(before + (above > below ? -step : step));
    if (bar.value() != before) {
        followPointer();
    }
}

} // namespace zeph::ui
