// SPDX-License-Identifier: MIT
#include "ui/settings/DesktopLook.h"

#include "support/FakeDesktopAppearance.h"
#include "support/ManualRunLoop.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace zeph::ui {

using Scheme = DesktopAppearance::Scheme;
using namespace std::chrono_literals;

namespace {

QPalette palette(const QColor &ground) {
    QPalette result;
    result.setColor(QPalette::Window, ground);
    return result;
}

class DesktopLookTest : public testing::Test {
protected:
    ManualClock clock;
    ManualRunLoop loop{clock};
    FakeDesktopAppearance desktop;
    QWidget window;
};

} // namespace

TEST_F(DesktopLookTest, theSchemeDecidesAndElseThePalette) {
    desktop.wantedScheme = Scheme::light;
    EXPECT_EQ(appearanceOf(desktop, palette(Qt::black)), Appearance::light);
    desktop.wantedScheme = Scheme::dark;
    EXPECT_EQ(appearanceOf(desktop, palette(Qt::white)), Appearance::dark);
    desktop.wantedScheme = Scheme::unknown;
    EXPECT_EQ(appearanceOf(desktop, palette(QColor(127, 127, 127))), Appearance::dark);
    EXPECT_EQ(appearanceOf(desktop, palette(QColor(128, 128, 128))), Appearance::light);
}

TEST_F(DesktopLookTest, highContrastGoesBeforeAScheme) {
    desktop.wantedContrast = true;
    desktop.wantedScheme = Scheme::light;
    EXPECT_EQ(appearanceOf(desktop, palette(Qt::black)), Appearance::highContrast);
}

TEST_F(DesktopLookTest, aChangeIsFollowedInALaterTurnAndOnce) {
    DesktopLook look(window, desktop, loop);
    desktop.wantedScheme = Scheme::light;
    desktop.tell();
    desktop.tell();
    EXPECT_EQ(look.look().appearance(), Appearance::dark);
    loop.drain();
    EXPECT_EQ(look.look().appearance(), Appearance::light);
    EXPECT_EQ(window.palette().color(QPalette::Window), look.look().tokens().ground);
}

TEST_F(DesktopLookTest, withoutMotionEveryDurationIsZero) {
    desktop.wantedMotion = false;
    DesktopLook look(window, desktop, loop);
    EXPECT_EQ(look.look().duration(120ms), 0ms);
    desktop.wantedMotion = true;
    desktop.tell();
    loop.drain();
    EXPECT_EQ(look.look().duration(120ms), 120ms);
}

TEST_F(DesktopLookTest, nothingIsRefreshedAfterItsEnd) {
    {
        const DesktopLook look(window, desktop, loop);
        desktop.wantedScheme = Scheme::light;
        desktop.tell();
    }
    loop.drain();
    desktop.tell();
    loop.drain();
}

} // namespace zeph::ui
