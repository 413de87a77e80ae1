// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QListWidget>

#include <functional>
#include <vector>

namespace zeph::ui {

/// Rows on a card, however many: one stop of the keyboard, where the arrows move and Enter or
/// Space chooses. As high as all its rows, since the pane scrolls; only those in sight are painted.
class RowList : public QListWidget {
public:
    explicit RowList(const QString &name, QWidget *parent = nullptr);

    /// Called with the row that was chosen.
    std::function<void(int)> onChosen;

    /// What the row needs at that width, in logical pixels.
    virtual int rowHeight(int row, int width) const = 0;
    /// Paints the row itself. What is common to all rows is painted already.
    virtual void paintRow(QPainter &painter, const QRect &area, int row) const = 0;

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    /// Shows as many rows as there are `sentences`, each what a screen reader says of its row.
    /// Keeps the current one.
    void setSentences(const QStringList &sentences);

    /// Shows `text`, which may come from anywhere, as it is over a row.
    void setRowToolTip(int row, const QString &text);

    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    friend class RowPainter;

    void choose(int row);
    void revealCurrent();

    int heightOf(int row, int width) const;

    Interaction m_interaction{*this};
    mutable std::vector<int> m_heights; ///< of the rows at `m_measuredWidth`
    mutable int m_measuredWidth = -1;   ///< -1 when they are to be measured anew
    bool m_isFilling = false;           ///< the items are not those of the rows yet
};

} // namespace zeph::ui
