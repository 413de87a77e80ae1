// SPDX-License-Identifier: MIT
#include "ui/controls/SideBar.h"

#include "ui/controls/Look.h"

namespace zeph::ui {

SideBar::SideBar(const std::vector<Tab> &tabs, QWidget *parent) : QTabBar(parent) {
    setShape(QTabBar::RoundedWest);
    for (const Tab &tab : tabs) {
        addTab(tab.title);
    }
}

QSize SideBar::tabSizeHint(int) const {
    return {scaled(180), scaled(40)};
}

} // namespace zeph::ui
