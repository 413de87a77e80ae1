// SPDX-License-Identifier: MIT
#include "adapters/session/gnome/AccessibleFront.h"

#include "FakeAccessibility.h"

#include "adapters/apps/ProcessWords.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/loop/QtTaskExecutor.h"
#include "support/FakeConsent.h"

#include <unistd.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Kind = AccessibleWindow::Kind;

} // namespace

TEST(AccessibleWindowTest, theShellItsIconsAndOursAreTheDesktop) {
    EXPECT_EQ(accessibleWindowOf({9, u"gnome-shell"_s, {}, {}}).kind, Kind::desktop);
    EXPECT_EQ(accessibleWindowOf(
                  {9, u"gjs"_s, {u"gjs"_s, u"/usr/share/ding@rastersoft.com/ding.js"_s}, {}})
                  .kind,
              Kind::desktop);
    EXPECT_EQ(accessibleWindowOf({getpid(), u"tavi"_s, {}, {}}).kind, Kind::desktop);
    EXPECT_EQ(accessibleWindowOf({9, u"gedit"_s, {}, {}}).kind, Kind::application);
    EXPECT_EQ(accessibleWindowOf({9, {}, {}, {}}).kind, Kind::untold);
}

class AccessibleFrontTest : public testing::Test {
protected:
    ~AccessibleFrontTest() override {
        front.reset();
        executor.finish(std::chrono::seconds(5));
    }

    void open(ConsentState state = ConsentState::granted) {
        consent.set(state);
        desktop.appear();
        front.emplace(ours.bus(), Background::over(executor, runLoop), consent);
        if (consent.isGranted()) {
            ASSERT_TRUE(eventually([&] { return !desktop.events.isEmpty(); }));
        }
    }

    bool waitFor(Kind kind, const QString &program = {}) {
        return eventually(
            [&] { return front->now().kind == kind && front->now().hints.program == program; },
            5000);
    }

    PrivateBus bus;
    BusConnection ours{bus.address()};
    FakeAccessibility desktop{bus.address()};
    FakeConsent consent;
    QtRunLoop runLoop;
    QtTaskExecutor executor;
    std::optional<AccessibleFront> front;
};

TEST_F(AccessibleFrontTest, listensToOneEvent) {
    open();
    EXPECT_EQ(desktop.events, QStringList{u"object:state-changed:active"_s});
    EXPECT_EQ(front->now().kind, Kind::notHeard);
}

TEST_F(AccessibleFrontTest, isTheProgramThatSaysThatItsWindowIsActive) {
    open();
    TellingProgram editor(desktop.address(), u"editor"_s);
    editor.tell(true);
    ASSERT_TRUE(waitFor(Kind::application, u"editor"_s));
    TellingProgram viewer(desktop.address(), u"viewer"_s);
    viewer.tell(true, true);
    EXPECT_TRUE(waitFor(Kind::application, u"viewer"_s));
}

TEST_F(AccessibleFrontTest, theWordOfTheOneBeforeMayComeLate) {
    open();
    TellingProgram editor(desktop.address(), u"editor"_s);
    editor.tell(true);
    ASSERT_TRUE(waitFor(Kind::application, u"editor"_s));
    TellingProgram viewer(desktop.address(), u"viewer"_s);
    viewer.tell(true);
    ASSERT_TRUE(waitFor(Kind::application, u"viewer"_s));
    editor.tell(false);
    eventually([&] { return front->now().kind != Kind::application; }, 200);
    EXPECT_EQ(front->now().hints.program, u"viewer"_s);
}

TEST_F(AccessibleFrontTest, whoFollowsWithoutAWordIsAnotherOne) {
    open();
    TellingProgram editor(desktop.address(), u"editor"_s);
    editor.tell(true);
    ASSERT_TRUE(waitFor(Kind::application, u"editor"_s));
    editor.tell(false);
    EXPECT_TRUE(waitFor(Kind::untold));
}

TEST_F(AccessibleFrontTest, aProgramThatEndsIsNoLongerInFront) {
    open();
    TellingProgram editor(desktop.address(), u"editor"_s);
    editor.tell(true);
    ASSERT_TRUE(waitFor(Kind::application, u"editor"_s));
    editor.end();
    EXPECT_TRUE(waitFor(Kind::untold));
}

TEST_F(AccessibleFrontTest, nobodyListensWithoutTheUsersConsent) {
    open(ConsentState::notDetermined);
    TellingProgram editor(desktop.address(), u"editor"_s);
    editor.tell(true);
    eventually([&] { return front->now().kind != Kind::notHeard; }, 200);
    EXPECT_EQ(front->now().kind, Kind::notHeard);
    EXPECT_EQ(desktop.calls, QStringList());
}

TEST_F(AccessibleFrontTest, theConsentTakesEffectAtOnceAndSoDoesItsWithdrawal) {
    open(ConsentState::notDetermined);
    TellingProgram editor(desktop.address(), u"editor"_s);
    consent.set(ConsentState::granted);
    ASSERT_TRUE(eventually([&] { return !desktop.events.isEmpty(); }));
    editor.tell(true);
    ASSERT_TRUE(waitFor(Kind::application, u"editor"_s));
    consent.set(ConsentState::denied);
    EXPECT_EQ(front->now().kind, Kind::notHeard);
    editor.tell(true);
    eventually([&] { return front->now().kind != Kind::notHeard; }, 200);
    EXPECT_EQ(front->now().kind, Kind::notHeard);
}

TEST_F(AccessibleFrontTest, listensAnewWhereTheBusIsStartedAnew) {
    open();
    desktop.vanish();
    desktop.events.clear();
    desktop.appear();
    ASSERT_TRUE(eventually([&] { return !desktop.events.isEmpty(); }));
    TellingProgram editor(desktop.address(), u"editor"_s);
    editor.tell(true);
    EXPECT_TRUE(waitFor(Kind::application, u"editor"_s));
}

TEST_F(AccessibleFrontTest, neverSwitchesAccessibilityOn) {
    open();
    for (const QString &call : desktop.calls) {
        EXPECT_TRUE(call == u"GetAddress" || call == u"RegisterEvent") << call.toStdString();
    }
}

} // namespace zeph
