// SPDX-License-Identifier: MIT
#include "app/Windows.h"

#include "AppDelegateFixture.h"
#include "app/WebServices.h"
#include "host/DesktopIconsManager.h"
#include "host/LaunchAtLogin.h"
#include "model/AppState.h"
#include "settings/Consents.h"
#include "widgets/RootWallpaperView.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// The program's own windows, on a desktop of fakes.
class WindowsTest : public AppDelegateTest {
protected:
    /// The window of that title that is on the screen; null without one.
    static const QWidget *shown(const QString &title) {
        QApplication::processEvents();
        for (const QWidget *window : QApplication::topLevelWidgets()) {
            if (window->isVisible() && window->windowTitle() == title) {
                return window;
            }
        }
        return nullptr;
    }

    AppServices made = services();
    AppState state{clock.now()};
    FramingContext framing{preferences, calendar, formatters};
    RootWallpaperView wallpaper{state,
                                preferences,
                                *usageStore,
                                framing,
                                textMetrics,
                                {.quoteEnabled = [] { return true; },
                                 .showAhrefsAttribution = [](const QUuid &) { return true; }}};
    LaunchAtLogin launchAtLogin{shell.loginItem};
    DesktopIconsManager desktopIcons{shell.desktopShell, defaults, background};
    Consents consents{defaults};
    Windows windows{{made, shell.ports, state, wallpaper, framing,
                     makeWebServices(platform, endpoints, framing), launchAtLogin, desktopIcons},
                    consents};
};

} // namespace

TEST_F(WindowsTest, theSettingsHugTheEdgeOfTheScreenWhateverIconsTheWallpaperLeavesRoomFor) {
    shell.windowScreens.screens = {screen(u"A"_s, 1, 1920, 1080, 0, 1, 30)};
    screens.screens = shell.windowScreens.screens;
    screens.screens.front().visibleFrame.setRight(1400);
    windows.openSettings();
    const QWidget *settings = shown(u"Tavi"_s);
    ASSERT_NE(settings, nullptr);
    const QRect frame = settings->frameGeometry();
    constexpr int frameSide = 4; // which the toolkit may not know yet
    EXPECT_NEAR(frame.x() + frame.width(), 1920 - 24, frameSide);
    EXPECT_NEAR(frame.y() - 30, 1080 - frame.y() - frame.height(), frameSide);
}

} // namespace zeph
