// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"
#include "ui/settings/DesktopLook.h"
#include "ui/settings/SettingsSearch.h"

#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

class QStackedWidget;

namespace zeph {

struct Screen;

namespace ui {

class CrossFade;
class Pane;
class PaneScroll;
class SettingsSide;
class ShortcutsCard;
class Sky;

/// The one window in which the user changes anything: tabs at the side, and a pane for each, made
/// when it is first looked at and then kept. Closing keeps the window, with its tab.
class SettingsWindow : public QWidget {
public:
    struct Tab {
        QString symbol;
        QString title;
        std::function<std::unique_ptr<Pane>()> make;
    };

    /// The desktop and the loop outlive the window, and what `make` needs as well.
    SettingsWindow(std::vector<Tab> tabs, DesktopAppearance &appearance, RunLoop &runLoop);
    ~SettingsWindow() override;

    /// Shows the pane of that tab; an index that none has is left out.
    void showTab(int index);
    int currentTab() const { return m_current; }

    /// Moves the window to the right edge of `screen`, in the middle of its height, and makes it
    /// no larger than what is visible there. To be called before each showing; the frame that the
    /// window manager then puts around it is reckoned with once it is known.
    void hugRightEdge(const Screen &screen);

    /// Called after the user has closed the window.
    std::function<void()> onClosed;

protected:
    void closeEvent(QCloseEvent *event) override;
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    struct Shown {
        Pane *pane = nullptr;
        PaneScroll *scroll = nullptr;
    };

    void addShortcuts();
    void goBack();
    void showShortcuts();
    void releaseMemory();
    bool isInFrame() const;
    void placeInFrame(const QRect &visible);

    Shown &shownAt(int index);
    void search(const QString &wanted);
    void makeNextPane();
    std::vector<Findable> findables() const;
    void jumpTo(const Findable &found);

    RunLoop &m_runLoop;
    DesktopLook m_look;
    std::vector<Tab> m_tabs;
    std::vector<Shown> m_shown; ///< one a tab, empty until it is made
    int m_current = 0;
    bool m_makesPanes = false;   // the next one is made in a later turn
    std::optional<QRect> m_edge; ///< of the screen to hug; absent once the frame is known
    Sky *m_sky;
    SettingsSide *m_side;
    QStackedWidget *m_stack;
    CrossFade *m_fade;
    ShortcutsCard *m_shortcuts;
    WorkOwner m_owner;
};

} // namespace ui

} // namespace zeph
