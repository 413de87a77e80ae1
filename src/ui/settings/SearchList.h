// SPDX-License-Identifier: MIT
#pragma once

#include <QListWidget>

namespace zeph::ui {

/// What a search has found: a title, and where it stands.
class SearchList : public QListWidget {
public:
    struct Row {
        QString title;
        QString place; ///< empty for none
    };

    explicit SearchList(QWidget *parent = nullptr);

    /// Shows `rows`, the first being the current one; says so where there are none.
    void setRows(const QList<Row> &rows);

    /// Makes the row `by` further on the current one, if there is one.
    void moveCurrent(int by);

protected:
    void paintEvent(QPaintEvent *event) override;
};

} // namespace zeph::ui
