// SPDX-License-Identifier: MIT
#include "adapters/session/gnome/AccessibleFront.h"

#include "FakeAccessibility.h"

#include "adapters/apps/ProcessWords.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/loop/QtTaskExecutor.h"
#include "support/FakeConsent.h"

#include <QDBusConnectionInterface>

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

TEST(AccessibleWindowTest, whatSpeaksForASandboxIsWhoIsInIt) {
    const QString proxy = u"xdg-dbus-proxy"_s;
    const auto editor =
        accessibleWindowOf({9, proxy, {}, {}, "[Application]\nname=org.example.Editor\n"});
    EXPECT_EQ(editor.kind, Kind::application);
    EXPECT_EQ(editor.hints.desktopFile, u"org.example.Editor"_s);
    EXPECT_EQ(accessibleWindowOf({9, proxy, {}, {}, "[Application]\nname=com.tavi.Tavi\n"}).kind,
              Kind::desktop);
    EXPECT_EQ(accessibleWindowOf({9, proxy, {}, {}}).kind, Kind::untold)
        << "all sandboxes would be one application";
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

TEST_F(AccessibleFrontTest, theCellsOfAListAreNoWindows) {
    open();
    TellingProgram editor(desktop.address(), u"editor"_s);
    editor.tell(true);
    ASSERT_TRUE(waitFor(Kind::application, u"editor"_s));
    int changes = 0;
    const Subscription told = front->subscribe([&] { ++changes; });
    for (int row = 0; row < 5; ++row) {
        editor.tellOf(u"/cell/%1"_s.arg(row), true);
        editor.tellOf(u"/cell/%1"_s.arg(row), false);
    }
    TellingProgram viewer(desktop.address(), u"viewer"_s);
    viewer.tellOf(u"/cell"_s, true);
    eventually([&] { return changes > 0; }, 300);
    EXPECT_EQ(front->now().hints.program, u"editor"_s);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(editor.asked(), u"/window"_s) << "an arrow key costs no call";
    EXPECT_EQ(viewer.asked(), u"/cell"_s);
}

TEST_F(AccessibleFrontTest, aProgramMayTellOfTwoWindowsInEitherOrder) {
    open();
    TellingProgram editor(desktop.address(), u"editor"_s);
    editor.tellOf(u"/window/1"_s, true);
    ASSERT_TRUE(waitFor(Kind::application, u"editor"_s));
    editor.tellOf(u"/window/2"_s, true);
    editor.tellOf(u"/window/1"_s, false);
    eventually([&] { return front->now().kind != Kind::application; }, 300);
    EXPECT_EQ(front->now().kind, Kind::application);
    editor.tellOf(u"/window/2"_s, false);
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
    EXPECT_TRUE(eventually([&] { return desktop.events.isEmpty(); })) << "nobody need tell";
    editor.tell(true);
    eventually([&] { return front->now().kind != Kind::notHeard; }, 200);
    EXPECT_EQ(front->now().kind, Kind::notHeard);
}

TEST_F(AccessibleFrontTest, itsConnectionIsNeverClosed) {
    const auto connections = [this] {
        return BusConnection(desktop.address()).bus().interface()->registeredServiceNames().value();
    };
    open();
    const qsizetype before = connections().size();
    for (const auto state : {ConsentState::denied, ConsentState::granted, ConsentState::denied}) {
        consent.set(state);
        ASSERT_TRUE(eventually(
            [&] { return desktop.events.isEmpty() == (state == ConsentState::denied); }));
        EXPECT_EQ(connections().size(), before);
    }
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
