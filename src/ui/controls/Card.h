// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

class QVBoxLayout;

namespace zeph::ui {

/// A veil with rows stacked on it.
class Card : public QFrame {
public:
    explicit Card(QWidget *parent = nullptr);

    /// Below the others, apart by a line that starts where the text of `row` does.
    void addRow(QWidget *row);
    /// What belongs to the row above it and stands under that row's text, without a line.
    void addBody(QWidget *body);

private:
    QVBoxLayout *m_rows;
};

} // namespace zeph::ui
