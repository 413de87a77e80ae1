// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QVBoxLayout;

namespace zeph::ui {

/// Rows of a card that come and go, apart by hairlines.
class CardRows : public QWidget {
public:
    /// Where the lines are: below the texts of rows that reach from edge to edge of the card, or
    /// all along rows that stand under a text themselves.
    enum class Lines { underTheText, whole };

    explicit CardRows(Lines lines, QWidget *parent = nullptr);

    /// Below the others.
    void add(QWidget *row);
    QWidget *row(int index) const;
    int count() const;

    /// Removes the rows from `index` on. A row may ask for its own end: it comes later.
    void removeFrom(int index);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Lines m_lines;
    QVBoxLayout *m_rows;
};

} // namespace zeph::ui
