// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

class QComboBox;

namespace zeph::ui {

/// Paints the rows of a menu: a tick before the chosen one, a fill behind the one that is pointed
/// at.
class MenuRowDelegate : public QStyledItemDelegate {
public:
    /// `box` tells which row is chosen.
    explicit MenuRowDelegate(QComboBox &box);

    QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;

private:
    QComboBox *m_box;
};

} // namespace zeph::ui
