// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Interaction.h"

#include <QTabBar>

#include <vector>

namespace zeph::ui {

/// The tabs of the window, one below the other: one stop, where the arrows move.
class SideBar : public QTabBar {
public:
    struct Tab {
        QString symbol;
        QString title;
    };

    explicit SideBar(const std::vector<Tab> &tabs, QWidget *parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    QSize tabSizeHint(int index) const override;
    QSize minimumTabSizeHint(int index) const override;
    void wheelEvent(QWheelEvent *event) override;

private:
    Rounded row(int index) const;
    void paintRow(QPainter &painter, int index) const;

    std::vector<QString> m_symbols;
    int m_hovered = -1;
    Interaction m_interaction;
};

} // namespace zeph::ui
