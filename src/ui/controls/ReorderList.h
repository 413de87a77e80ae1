// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QListWidget>
#include <QPointer>
#include <QTimer>
#include <QVariantAnimation>

#include <functional>
#include <optional>
#include <vector>

namespace zeph::ui {

class EdgeFade;
class LiftedRow;

/// Rows that are put in another order: dragged by the mouse; or by keyboard, where Space lifts the
/// row, the arrows move it, Space drops it and Escape takes it back, and Alt with an arrow moves it
/// at once.
class ReorderList : public QListWidget {
public:
    struct Row {
        QString id;
        QString symbol;
        QString title;
        QString mark = {}; ///< a word at the end, such as that it does not fit
        bool operator==(const Row &) const = default;
    };

    explicit ReorderList(QWidget *parent = nullptr);

    /// Shows `rows`, once none is in the hand; keeps the current one.
    void setRows(const std::vector<Row> &rows);
    QStringList order() const;
    bool isLifted() const { return m_hand.has_value(); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// Called with the ids after the user has moved a row.
    std::function<void(const QStringList &)> onReordered;

protected:
    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    /// A row that is lifted: which, and into which place it would be dropped.
    struct Hand {
        int row = 0;
        int place = 0;
        bool isByMouse = false;
    };

    void lift(int row, bool isByMouse);
    void moveHand(int place);
    void drop();
    void putBack();
    void letGo();
    void carry(int from, int to);
    bool handleKey(const QKeyEvent &event);

    void followPointer();
    void scrollAtEdge();

    static int rowHeight();
    void fill(const std::vector<Row> &rows);
    void nameRows();
    int placeOf(int row) const;
    double yOf(int row) const;
    void glideToPlaces();
    void placeLifted();
    void placeFades();
    void revealPlace(int place);
    void revealCurrent();
    void paintRow(QPainter &painter, const QRectF &area, int row) const;
    void paintLines(QPainter &painter) const;

    std::vector<Row> m_rows;
    std::optional<std::vector<Row>> m_pending; ///< told while a row was in the hand
    std::optional<Hand> m_hand;
    std::optional<QPoint> m_pressedAt; ///< in the viewport, until a drag or the release
    QPoint m_pointer;                  ///< in the viewport, while dragging
    double m_grip = 0;                 ///< of the pointer in the row
    int m_hovered = -1;
    std::vector<double> m_from; ///< where each row glides from
    QVariantAnimation m_glide;
    QTimer m_edgeTimer;
    QPointer<LiftedRow> m_lifted;
    EdgeFade *m_top;
    EdgeFade *m_bottom;
    Interaction m_interaction{*this};
};

} // namespace zeph::ui
