// SPDX-License-Identifier: MIT
#include "adapters/windows/X11ApplicationPolicy.h"

#include "support/WaitUntil.h"
#include "support/XTestClient.h"
#include "support/XvfbSession.h"

#include <QGuiApplication>
#include <QRasterWindow>
#include <QShowEvent>

#include <gtest/gtest.h>

#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr const char *skipTaskbar = "_NET_WM_STATE_SKIP_TASKBAR";

XvfbSession *display = nullptr; // of the whole process, since the toolkit connects once

class X11ApplicationPolicyTest : public testing::Test {
protected:
    bool isListed(const QWindow &one) const {
        return !client.atomNames(static_cast<xcb_window_t>(one.winId()), "_NET_WM_STATE")
                    .contains(skipTaskbar);
    }

    bool isOnScreen(const QWindow &one) const {
        return client.isViewable(static_cast<xcb_window_t>(one.winId()));
    }

    void show(QWindow &one) {
        one.resize(200, 100);
        one.show();
        ASSERT_TRUE(waitUntil([&] { return isOnScreen(one); }));
    }

    bool isAbove(xcb_window_t one, xcb_window_t other) const {
        const QList<xcb_window_t> all = client.stacking();
        return all.indexOf(client.frameOf(one)) > all.indexOf(client.frameOf(other));
    }

    XTestClient client{display->display()};
    X11ApplicationPolicy policy;
    QRasterWindow window;
};

TEST_F(X11ApplicationPolicyTest, windowsOfARegularProgramAreListed) {
    policy.setActivationPolicy(ActivationPolicy::regular);
    show(window);
    EXPECT_TRUE(isListed(window));
}

TEST_F(X11ApplicationPolicyTest, windowsOfAnAccessoryAreNotListed) {
    policy.setActivationPolicy(ActivationPolicy::accessory);
    show(window);
    EXPECT_FALSE(isListed(window));
    EXPECT_TRUE(client.atomNames(static_cast<xcb_window_t>(window.winId()), "_NET_WM_STATE")
                    .indexOf("_NET_WM_STATE_SKIP_PAGER") < 0);
}

TEST_F(X11ApplicationPolicyTest, aWindowIsOutOfTheTaskBarBeforeItIsOnTheScreen) {
    policy.setActivationPolicy(ActivationPolicy::accessory);
    window.create();
    EXPECT_TRUE(isListed(window));
    QShowEvent aboutToBeShown;
    QCoreApplication::sendEvent(&window, &aboutToBeShown);
    EXPECT_TRUE(waitUntil([this] { return !isListed(window); })); // the toolkit sends it later
    EXPECT_FALSE(isOnScreen(window));
}

TEST_F(X11ApplicationPolicyTest, aWindowThatIsShownAgainStaysOut) {
    policy.setActivationPolicy(ActivationPolicy::accessory);
    show(window);
    window.hide();
    ASSERT_TRUE(waitUntil([this] { return !isOnScreen(window); }));
    show(window);
    EXPECT_TRUE(waitUntil([this] { return !isListed(window); }));
}

TEST_F(X11ApplicationPolicyTest, aWindowOnTheScreenFollowsTheProgram) {
    policy.setActivationPolicy(ActivationPolicy::regular);
    show(window);
    policy.setActivationPolicy(ActivationPolicy::accessory);
    EXPECT_TRUE(waitUntil([this] { return !isListed(window); }));
    policy.setActivationPolicy(ActivationPolicy::regular);
    EXPECT_TRUE(waitUntil([this] { return isListed(window); }));
}

TEST_F(X11ApplicationPolicyTest, aWindowThatIsShownAgainIsListedOnceTheProgramIsRegular) {
    policy.setActivationPolicy(ActivationPolicy::accessory);
    show(window);
    window.hide();
    ASSERT_TRUE(waitUntil([this] { return !isOnScreen(window); }));
    policy.setActivationPolicy(ActivationPolicy::regular);
    show(window);
    EXPECT_TRUE(waitUntil([this] { return isListed(window); }));
}

TEST_F(X11ApplicationPolicyTest, activationBringsTheWindowInFrontOfOtherPrograms) {
    show(window);
    const xcb_window_t other = client.show({.geometry = QRect(0, 0, 900, 700), .name = "Other"});
    client.activate(other);
    const auto ours = static_cast<xcb_window_t>(window.winId());
    ASSERT_TRUE(waitUntil([&] { return isAbove(other, ours); }));
    policy.activate(window);
    EXPECT_TRUE(waitUntil([&] { return isAbove(ours, other); }));
    EXPECT_TRUE(waitUntil(
        [&] { return client.numbers(client.root(), "_NET_ACTIVE_WINDOW").value(0) == ours; }));
    client.destroy(other);
}

TEST_F(X11ApplicationPolicyTest, activationBringsTheWantedWindowAloneToTheFront) {
    QRasterWindow wanted;
    show(wanted);
    show(window); // made first and shown last: in no order is it the one before
    QRasterWindow last;
    show(last);
    const xcb_window_t other = client.show({.geometry = QRect(0, 0, 900, 700), .name = "Other"});
    client.activate(other);
    const auto number = [](const QWindow &one) { return static_cast<xcb_window_t>(one.winId()); };
    ASSERT_TRUE(waitUntil([&] { return isAbove(other, number(last)); }));
    policy.activate(wanted);
    EXPECT_TRUE(waitUntil([&] {
        return client.numbers(client.root(), "_NET_ACTIVE_WINDOW").value(0) == number(wanted);
    }));
    EXPECT_TRUE(waitUntil([&] { return isAbove(number(wanted), other); }));
    EXPECT_TRUE(isAbove(other, number(last))) << "the others stay where they were";
    EXPECT_TRUE(isAbove(number(last), number(window)));
    client.destroy(other);
}

TEST_F(X11ApplicationPolicyTest, activationShowsNoWindowThatIsHidden) {
    show(window);
    window.hide();
    ASSERT_TRUE(waitUntil([this] { return !isOnScreen(window); }));
    policy.activate(window);
    runLoopFor(std::chrono::milliseconds(200));
    EXPECT_FALSE(isOnScreen(window));
}

} // namespace

} // namespace zeph

int main(int argc, char **argv) {
    testing::InitGoogleTest(&argc, argv);
    if (testing::GTEST_FLAG(list_tests)) {
        return RUN_ALL_TESTS();
    }
    zeph::XvfbSession session;
    if (!session.isRunning() || !session.startOpenbox()) {
        return 1;
    }
    zeph::display = &session;
    qputenv("DISPLAY", session.display());
    qputenv("QT_QPA_PLATFORM", "xcb");
    // By pointer: it ends before the display does.
    const auto application = std::make_unique<QGuiApplication>(argc, argv);
    return RUN_ALL_TESTS();
}
