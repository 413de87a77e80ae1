// SPDX-License-Identifier: MIT
#include "support/WaitUntil.h"
#include "support/XTestClient.h"
#include "support/XvfbSession.h"
#include "ui/controls/Look.h"
#include "ui/settings/WindowUnderTest.h"

#include "ports/Screens.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace zeph::ui {

namespace {

XvfbSession *display = nullptr; // of the whole process, since the toolkit connects once

/// The settings window in the frame of a window manager.
class SettingsWindowFrameTest : public testing::Test {
protected:
    ~SettingsWindowFrameTest() override { made.window->hide(); }

    static Screen screenOf(const QRect &visible) {
        Screen screen;
        screen.frame = visible;
        screen.visibleFrame = visible;
        return screen;
    }

    void open() {
        made.window->hugRightEdge(screenOf(visible));
        made.window->showNormal();
    }

    xcb_window_t window() const { return static_cast<xcb_window_t>(made.window->winId()); }

    /// The window with its frame, as it is on the screen.
    QRect framed() const { return client.geometry(client.frameOf(window())); }

    /// Whether the window is there and the toolkit has heard of it.
    bool standsAt(int x) const {
        return framed().x() == x && made.window->frameGeometry() == framed();
    }

    bool hugsTheEdge() const {
        const QRect whole = framed();
        const int above = whole.y() - visible.y();
        const int below = visible.bottom() - whole.bottom();
        return client.frameOf(window()) != window() && visible.right() - whole.right() == 24 &&
               std::abs(above - below) <= 1;
    }

    /// The same, and the toolkit has heard of it, so that it knows what is moved.
    bool isKnownToHugTheEdge() const { return hugsTheEdge() && standsAt(framed().x()); }

    std::string whereItIs() const {
        const auto words = [](const QRect &rect) {
            return std::to_string(rect.x()) + ' ' + std::to_string(rect.y()) + ' ' +
                   std::to_string(rect.width()) + ' ' + std::to_string(rect.height());
        };
        return words(framed()) + ", as the toolkit knows " + words(made.window->frameGeometry());
    }

    XTestClient client{display->display()};
    WindowUnderTest made;
    QRect visible{0, 40, 1280, 900};
};

TEST_F(SettingsWindowFrameTest, theFirstOpeningHugsTheEdgeWithItsFrame) {
    open();
    EXPECT_TRUE(waitUntil([this] { return hugsTheEdge(); })) << whereItIs();
    EXPECT_EQ(made.window->size(), QSize(scaled(880), scaled(580)));
}

TEST_F(SettingsWindowFrameTest, aWindowThatTheUserMovedStaysUntilItIsOpenedAgain) {
    open();
    ASSERT_TRUE(waitUntil([this] { return isKnownToHugTheEdge(); }));
    made.window->move(60, 120);
    ASSERT_TRUE(waitUntil([this] { return standsAt(60); }));
    made.window->lower(); // and seen again
    made.window->raise();
    made.window->update();
    runLoopFor(std::chrono::milliseconds(100));
    EXPECT_EQ(framed().x(), 60);
    made.window->close();
    open();
    EXPECT_TRUE(waitUntil([this] { return hugsTheEdge(); })) << whereItIs();
}

TEST_F(SettingsWindowFrameTest, aWindowThatWasOpenedTwiceStaysWhereTheUserMovesIt) {
    open();
    ASSERT_TRUE(waitUntil([this] { return isKnownToHugTheEdge(); }));
    made.window->move(60, 120);
    ASSERT_TRUE(waitUntil([this] { return standsAt(60); }));
    open();
    ASSERT_TRUE(waitUntil([this] { return isKnownToHugTheEdge(); }));
    made.window->move(60, 120);
    ASSERT_TRUE(waitUntil([this] { return standsAt(60); }));
    const auto other = client.show({.geometry = {100, 200, 300, 200}});
    runLoopFor(std::chrono::milliseconds(100));
    client.destroy(other); // what was below is drawn again
    runLoopFor(std::chrono::milliseconds(200));
    EXPECT_EQ(framed().x(), 60);
}

TEST_F(SettingsWindowFrameTest, onASmallScreenTheFrameIsWithinIt) {
    visible = QRect(0, 0, 800, 500);
    open();
    EXPECT_TRUE(waitUntil([this] {
        const QRect whole = framed(); // which is sized before it is placed
        return whole.height() == 500 && visible.contains(whole);
    })) << whereItIs();
}

} // namespace

} // namespace zeph::ui

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS();
    }
    zeph::XvfbSession session;
    if (!session.isRunning() || !session.startOpenbox()) {
        return 1;
    }
    zeph::ui::display = &session;
    qputenv("DISPLAY", session.display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    // By pointer: it ends before the display does.
    const auto application = std::make_unique<QApplication>(argc, argv);
    return RUN_ALL_TESTS();
}
