// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Glide.h"

#include <QProgressBar>

namespace zeph::ui {

/// A mark a step, of which the current one is long and bright. To a screen reader, a progress bar.
class ProgressMarks : public QProgressBar {
public:
    explicit ProgressMarks(int count, QWidget *parent = nullptr);

    /// Moves to another mark, from 0.
    void setCurrent(int mark);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    int m_count;
    Glide m_place; ///< of the bright mark, between two of them while it moves
};

} // namespace zeph::ui
