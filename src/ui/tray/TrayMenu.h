// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Look.h"
#include "ui/tray/TrayMenuStyle.h"

#include <QMenu>

#include <vector>

namespace zeph {

struct MenuItem;

namespace ui {

/// The menu of the tray, for trays that leave the drawing of it to the program.
class TrayMenu : public QMenu {
public:
    TrayMenu(const std::vector<MenuItem> &items, Appearance appearance);

    /// Opens a menu at a place of the screen, in device pixels, in place of one that is open. It
    /// goes when it is left.
    static void popUp(const std::vector<MenuItem> &items, Appearance appearance,
                      QPoint devicePosition);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    TrayMenuStyle m_style;
    Look m_look;
};

} // namespace ui

} // namespace zeph
