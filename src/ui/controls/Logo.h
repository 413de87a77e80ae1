// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QWidget>

namespace zeph::ui {

/// The program's icon.
class Logo : public QWidget {
public:
    /// `size` logical pixels square at the designed scale.
    explicit Logo(double size, QWidget *parent = nullptr);

protected:
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap m_picture; // while it is seen
};

} // namespace zeph::ui
