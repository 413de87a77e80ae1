// SPDX-License-Identifier: MIT
#include "ui/controls/ReorderList.h"

#include "ui/controls/EdgeFade.h"
#include "ui/controls/LiftedRow.h"
#include "ui/controls/Look.h"
#include "ui/controls/OverlayBar.h"

#include <QAccessible>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double reorderRowHeight = 42;
constexpr double reorderWidth = 290;
constexpr int leastRowsSeen = 3;
constexpr double roomBesideRow = 24; // of one that is scrolled into view
constexpr std::chrono::milliseconds makingRoom(160);
constexpr std::chrono::milliseconds edgeTick(16);

} // namespace

ReorderList::ReorderList(QWidget *parent)
    : QListWidget(parent),
      m_top(new EdgeFade(EdgeFade::Edge::top, this)),
      m_bottom(new EdgeFade(EdgeFade::Edge::bottom, this)) {
    setFrameShape(QFrame::NoFrame);
    setDragDropMode(QAbstractItemView::NoDragDrop);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalScrollBar()->setSingleStep(rowHeight() / 2);
    setAutoScroll(false); // it would scroll at a press, too
    setUniformItemSizes(true);
    setMouseTracking(true);
    viewport()->setAutoFillBackground(false);
    viewport()->setCursor(Qt::OpenHandCursor);
    setAccessibleDescription(
        u"Space lifts a row, the arrow keys move it, Space drops it and Escape "
        "puts it back."_s);
    m_glide.setStartValue(0.0);
    m_glide.setEndValue(1.0);
    m_glide.setEasingCurve(QEasingCurve::OutCubic);
    connect(&m_glide, &QVariantAnimation::valueChanged, this, [this] { viewport()->update(); });
    m_edgeTimer.setInterval(edgeTick);
    connect(&m_edgeTimer, &QTimer::timeout, this, [this] { scrollAtEdge(); });
    connect(verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] { placeFades(); });
    m_interaction.watch(*viewport());
    new OverlayBar(*this);
}

int ReorderList::rowHeight() {
    return scaled(reorderRowHeight);
}

QSize ReorderList::sizeHint() const {
    return {scaled(reorderWidth), std::max(1, count()) * rowHeight()};
}

QSize ReorderList::minimumSizeHint() const {
    return {scaled(reorderWidth) / 2, std::clamp(count(), 1, leastRowsSeen) * rowHeight()};
}

void ReorderList::setRows(const std::vector<Row> &rows) {
    if (m_hand) {
        m_pending = rows;
    } else if (rows != m_rows) {
        fill(rows);
    }
}

void ReorderList::fill(const std::vector<Row> &rows) {
    const int current = currentRow();
    const QString currentId =
        current < 0 ? QString() : m_rows[static_cast<std::size_t>(current)].id;
    m_rows = rows;
    clear();
    int next = std::min(current, static_cast<int>(rows.size()) - 1);
    for (const Row &row : rows) {
        auto *item = new QListWidgetItem(row.title, this);
        item->setData(Qt::UserRole, row.id);
        item->setSizeHint(QSize(0, rowHeight()));
        next = !currentId.isEmpty() && row.id == currentId ? count() - 1 : next;
    }
    nameRows();
    setCurrentRow(next < 0 && count() > 0 ? 0 : next);
    updateGeometry();
    glideToPlaces();
    m_glide.stop();
    viewport()->update();
}

/// Each says its place and how many there are.
void ReorderList::nameRows() {
    for (int row = 0; row < count(); ++row) {
        const Row &words = m_rows[static_cast<std::size_t>(row)];
        QString spoken = u"%1, %2 of %3"_s.arg(words.title, QString::number(placeOf(row) + 1),
                                               QString::number(count()));
        if (!words.mark.isEmpty()) {
            spoken += u", "_s + words.mark;
        }
        if (m_hand && m_hand->row == row) {
            spoken += u", lifted"_s;
        }
        QListWidgetItem *one = item(row);
        if (one->data(Qt::AccessibleTextRole).toString() != spoken) {
            one->setData(Qt::AccessibleTextRole, spoken);
            if (row == currentRow() && QAccessible::isActive()) {
                QAccessibleEvent event(this, QAccessible::NameChanged);
                event.setChild(row);
                QAccessible::updateAccessibility(&event);
            }
        }
    }
}

QStringList ReorderList::order() const {
    QStringList ids;
    for (const Row &row : m_rows) {
        ids.append(row.id);
    }
    return ids;
}

int ReorderList::placeOf(int row) const {
    if (!m_hand) {
        return row;
    }
    if (row == m_hand->row) {
        return m_hand->place;
    }
    if (m_hand->row < row && row <= m_hand->place) {
        return row - 1;
    }
    return m_hand->place <= row && row < m_hand->row ? row + 1 : row;
}

/// Where the row is drawn, in the coordinates of the content.
double ReorderList::yOf(int row) const {
    const double to = placeOf(row) * rowHeight();
    const auto index = static_cast<std::size_t>(row);
    if (m_glide.state() != QAbstractAnimation::Running || index >= m_from.size()) {
        return to;
    }
    return m_from[index] + (to - m_from[index]) * m_glide.currentValue().toDouble();
}

/// To be called after a place has changed; `m_from` is what was seen before.
void ReorderList::glideToPlaces() {
    const auto duration = Look::of(*this).duration(makingRoom);
    m_glide.stop();
    if (duration.count() > 0 && isVisible() && m_from.size() == m_rows.size()) {
        m_glide.setDuration(static_cast<int>(duration.count()));
        m_glide.start();
    }
    viewport()->update();
}

void ReorderList::lift(int row, bool isByMouse) {
    if (row < 0 || row >= count() || m_hand) {
        return;
    }
    m_hand = Hand{row, row, isByMouse};
    m_lifted = new LiftedRow(*this, [this, row](QPainter &painter, const QRectF &area) {
        if (row < count()) {
            paintRow(painter, area, row);
        }
    });
    if (isByMouse) {
        viewport()->setCursor(Qt::ClosedHandCursor);
    }
    nameRows();
    if (!isByMouse) {
        revealPlace(row);
    }
    placeLifted();
    viewport()->update();
}

void ReorderList::moveHand(int place) {
    const int wanted = std::clamp(place, 0, count() - 1);
    if (!m_hand || wanted == m_hand->place) {
        return;
    }
    std::vector<double> seen;
    seen.reserve(static_cast<std::size_t>(count()));
    for (int row = 0; row < count(); ++row) {
        seen.push_back(yOf(row));
    }
    m_from = std::move(seen);
    m_hand->place = wanted;
    nameRows();
    if (!m_hand->isByMouse) {
        revealPlace(wanted);
    }
    placeLifted();
    glideToPlaces();
}

void ReorderList::letGo() {
    m_hand.reset();
    m_pressedAt.reset();
    m_edgeTimer.stop();
    m_glide.stop();
    delete m_lifted.data();
    viewport()->setCursor(Qt::OpenHandCursor);
    viewport()->update();
}

void ReorderList::drop() {
    if (m_hand) {
        const Hand hand = *m_hand;
        letGo();
        carry(hand.row, hand.place);
    }
}

void ReorderList::putBack() {
    letGo();
    nameRows();
    if (const auto pending = std::exchange(m_pending, std::nullopt)) {
        setRows(*pending);
    }
}

void ReorderList::carry(int from, int to) {
    if (from == to || from < 0 || to < 0 || to >= count()) {
        putBack();
        return;
    }
    std::vector<Row> rows = m_rows;
    const auto index = [&rows](int row) { return rows.begin() + row; };
    if (from < to) {
        std::rotate(index(from), index(from + 1), index(to + 1));
    } else {
        std::rotate(index(to), index(from), index(from + 1));
    }
    setCurrentRow(from); // what is current is found again by its id
    fill(rows);
    revealPlace(to);
    m_pending.reset(); // the order in it is the one before
    if (onReordered) {
        onReordered(order());
    }
}

void ReorderList::revealPlace(int place) {
    QScrollBar &bar = *verticalScrollBar();
    const int top = place * rowHeight() - scaled(roomBesideRow);
    const int bottom = (place + 1) * rowHeight() + scaled(roomBesideRow);
    if (top < bar.value()) {
        bar.setValue(top);
    } else if (bottom > bar.value() + viewport()->height()) {
        bar.setValue(bottom - viewport()->height());
    }
}

void ReorderList::revealCurrent() {
    if (currentRow() >= 0) {
        revealPlace(currentRow());
    }
}

void ReorderList::placeLifted() {
    if (!m_lifted || !m_hand) {
        return;
    }
    const int y = m_hand->isByMouse ? m_pointer.y() - static_cast<int>(m_grip)
                                    : m_hand->place * rowHeight() - verticalScrollBar()->value();
    m_lifted->place({0, y, viewport()->width(), rowHeight()});
}

void ReorderList::resizeEvent(QResizeEvent *event) {
    QListWidget::resizeEvent(event);
    placeFades();
    placeLifted();
}

void ReorderList::scrollContentsBy(int dx, int dy) {
    QListWidget::scrollContentsBy(dx, dy);
    viewport()->update();
    placeFades();
    placeLifted();
}

void ReorderList::placeFades() {
    const QScrollBar &bar = *verticalScrollBar();
    m_top->follow(viewport()->geometry(), bar.value() - bar.minimum());
    m_bottom->follow(viewport()->geometry(), bar.maximum() - bar.value());
}

} // namespace zeph::ui
