// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QVBoxLayout;

namespace zeph::ui {

/// Rows that stand under the text of a card's row, and come and go, apart by hairlines.
class CardRows : public QWidget {
public:
    explicit CardRows(QWidget *parent = nullptr);

    /// Below the others.
    void add(QWidget *row);
    QWidget *row(int index) const;
    int count() const;

    /// Removes the rows from `index` on. A row may ask for its own end: it comes later.
    void removeFrom(int index);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVBoxLayout *m_rows;
};

} // namespace zeph::ui
