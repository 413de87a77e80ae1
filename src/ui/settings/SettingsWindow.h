// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Screens.h"
#include "ui/settings/Pane.h"

#include <QCloseEvent>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

namespace zeph {

class DesktopAppearance;
class RunLoop;

namespace ui {

/// Stands in for the settings until they are there: an empty window of their size and place.
class SettingsWindow : public QWidget {
public:
    struct Tab {
        QString symbol;
        QString title;
        std::function<std::unique_ptr<Pane>()> make;
    };

    SettingsWindow(std::vector<Tab> tabs, DesktopAppearance & /*appearance*/, RunLoop & /*runLoop*/)
        : m_tabs(std::move(tabs)) {
        setWindowTitle(QStringLiteral("Tavi"));
        resize(880, 580);
    }

    void showTab(int index) { m_current = index; }
    int currentTab() const { return m_current; }
    void hugRightEdge(const Screen &screen) {
        const QRectF &visible = screen.visibleFrame;
        move(static_cast<int>(visible.right()) - width() - 24,
             static_cast<int>(visible.top() + (visible.height() - height()) / 2));
    }

private:
    std::vector<Tab> m_tabs;
    int m_current = 0;
};

} // namespace ui

} // namespace zeph
