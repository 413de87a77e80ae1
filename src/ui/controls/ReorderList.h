// SPDX-License-Identifier: MIT
#pragma once

#include <QListWidget>

#include <functional>

namespace zeph::ui {

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

    /// Shows `rows`, unless one is in the hand; keeps the current one.
    void setRows(const std::vector<Row> &rows);
    QStringList order() const;
    bool isLifted() const { return m_isLifted; }

    /// Called with the ids after the user has moved a row.
    std::function<void(const QStringList &)> onReordered;

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    void moveCurrent(int offset);

    std::vector<Row> m_rows;
    bool m_isLifted = false;
    QStringList m_before; ///< the order when the row was lifted
};

} // namespace zeph::ui
