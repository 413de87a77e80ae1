// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>

#include <vector>

class QVBoxLayout;

namespace zeph::ui {

/// A veil with rows stacked on it.
class Card : public QFrame {
public:
    explicit Card(QWidget *parent = nullptr);

    /// Below the others, apart by a line that starts where the text of `row` does. Marks to choose
    /// follow what they are about without a line, and say which of how many they are.
    void addRow(QWidget *row);
    /// What belongs to the row above it and stands under that row's text, without a line.
    void addBody(QWidget *body);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    /// Where a line lies, if the row has one above it: its height, and where it starts.
    struct Line {
        int y = 0;
        int start = 0;
    };
    std::vector<Line> lines() const;
    void placeMarks() const;

    QVBoxLayout *m_rows;
};

} // namespace zeph::ui
