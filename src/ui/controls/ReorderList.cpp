// SPDX-License-Identifier: MIT
#include "ui/controls/ReorderList.h"

#include <QDropEvent>
#include <QKeyEvent>

namespace zeph::ui {

ReorderList::ReorderList(QWidget *parent) : QListWidget(parent) {
    setDragDropMode(QAbstractItemView::InternalMove);
    setFrameShape(QFrame::NoFrame);
}

void ReorderList::setRows(const std::vector<Row> &rows) {
    if (m_isLifted || rows == m_rows) {
        return;
    }
    m_rows = rows;
    const int current = currentRow();
    clear();
    for (const Row &row : rows) {
        auto *item = new QListWidgetItem(row.title, this);
        item->setData(Qt::UserRole, row.id);
    }
    setCurrentRow(std::min(current, count() - 1));
}

QStringList ReorderList::order() const {
    QStringList ids;
    for (int index = 0; index < count(); ++index) {
        ids.append(item(index)->data(Qt::UserRole).toString());
    }
    return ids;
}

void ReorderList::keyPressEvent(QKeyEvent *event) {
    QListWidget::keyPressEvent(event);
}

void ReorderList::dropEvent(QDropEvent *event) {
    QListWidget::dropEvent(event);
    if (onReordered) {
        onReordered(order());
    }
}

void ReorderList::moveCurrent(int offset) {
    const int from = currentRow();
    const int to = from + offset;
    if (from < 0 || to < 0 || to >= count()) {
        return;
    }
    insertItem(to, takeItem(from));
    setCurrentRow(to);
}

} // namespace zeph::ui
