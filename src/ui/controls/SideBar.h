// SPDX-License-Identifier: MIT
#pragma once

#include <QTabBar>

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
    QSize tabSizeHint(int index) const override;
};

} // namespace zeph::ui
