// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Glide.h"

#include <QWidget>

#include <functional>

namespace zeph::ui {

/// A row in the hand: over everything in its window, larger than life by a shadow.
class LiftedRow : public QWidget {
public:
    /// `paint` draws what stands on the row, into the area that it is given.
    LiftedRow(QWidget &list, std::function<void(QPainter &, const QRectF &)> paint);

    /// Where the row would lie flat, in the coordinates of the list.
    void place(const QRect &row);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QWidget &m_list;
    QRect m_row; ///< where it would lie flat
    std::function<void(QPainter &, const QRectF &)> m_paint;
    Glide m_lift; ///< 0 flat, 1 in the hand
};

} // namespace zeph::ui
