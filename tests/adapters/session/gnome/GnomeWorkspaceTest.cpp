// SPDX-License-Identifier: MIT
#include "FakeAccessibility.h"

#include "adapters/apps/InstalledEntries.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/loop/QtTaskExecutor.h"
#include "adapters/session/gnome/GnomeWorkspace.h"
#include "adapters/session/x11/X11Fixture.h"
#include "adapters/session/x11/X11Workspace.h"
#include "support/FakeConsent.h"

#include <QStringList>

#include <optional>

using namespace Qt::StringLiterals;

namespace zeph {

/// A display with windows of X11, and programs that tell of others.
class GnomeWorkspaceTest : public X11OpenboxTest {
protected:
    GnomeWorkspaceTest() {
        installed.install(u"editor"_s, "Name=Editor\nExec=editor\n");
        installed.letNotice();
        installed.read();
        desktop.appear();
    }
    ~GnomeWorkspaceTest() override {
        workspace.reset();
        accessible.reset();
        executor.finish(std::chrono::seconds(5));
    }

    void open(ConsentState state = ConsentState::granted) {
        consent.set(state);
        x11.emplace(*connection, installed.entries());
        accessible.emplace(ours.bus(), Background::over(executor, qtLoop), consent);
        workspace.emplace(*x11, *accessible, installed.entries(), runLoop);
        activations = workspace->subscribeToActivations([this](const RunningApplication &front) {
            seen.append(front.localizedName.value_or(u"?"_s));
        });
        if (consent.isGranted()) {
            ASSERT_TRUE(eventually([&] { return !desktop.events.isEmpty(); }));
        }
    }

    xcb_window_t activateX11() {
        const auto window =
            client->show({.geometry = {50, 50, 200, 150}, .instance = "term", .name = "XTermLike"});
        client->activate(window);
        EXPECT_TRUE(waitForFront(u"term"_s));
        return window;
    }

    void deactivateX11(xcb_window_t window) {
        client->destroy(window);
        ASSERT_TRUE(eventually([&] { return !x11->hasActiveWindow(); }));
    }

    bool waitForFront(const std::optional<QString> &identifier) {
        return eventually(
            [&] {
                const auto front = workspace->frontmostApplication();
                return (front ? front->bundleIdentifier : std::nullopt) == identifier;
            },
            5000);
    }

    PrivateBus bus;
    BusConnection ours{bus.address()};
    FakeAccessibility desktop{bus.address()};
    FakeConsent consent;
    QtRunLoop qtLoop;
    QtTaskExecutor executor;
    ManualClock clock;
    ManualRunLoop runLoop{clock};
    InstalledEntries installed;
    std::optional<X11Workspace> x11;
    std::optional<AccessibleFront> accessible;
    std::optional<GnomeWorkspace> workspace;
    QStringList seen;
    Subscription activations;
};

TEST_F(GnomeWorkspaceTest, isTheProgramThatTellsWhereNoX11WindowIsActive) {
    open();
    TellingProgram editor(desktop.address(), u"editor"_s);
    editor.tell(true);
    EXPECT_TRUE(waitForFront(u"editor"_s));
    EXPECT_EQ(seen, QStringList{u"Editor"_s});
}

TEST_F(GnomeWorkspaceTest, anActiveX11WindowCountsBeforeAllWords) {
    open();
    activateX11();
    TellingProgram editor(desktop.address(), u"editor"_s);
    editor.tell(true);
    ASSERT_TRUE(
        eventually([&] { return accessible->now().kind == AccessibleWindow::Kind::application; }));
    runLoop.advance(1);
    EXPECT_EQ(seen, QStringList{u"Terminal"_s});
}

TEST_F(GnomeWorkspaceTest, theWordMayComeBeforeTheX11WindowIsLeft) {
    open();
    const auto window = activateX11();
    TellingProgram editor(desktop.address(), u"editor"_s);
    editor.tell(true);
    ASSERT_TRUE(
        eventually([&] { return accessible->now().kind == AccessibleWindow::Kind::application; }));
    deactivateX11(window);
    EXPECT_TRUE(waitForFront(u"editor"_s));
    EXPECT_EQ(seen, (QStringList{u"Terminal"_s, u"Editor"_s}));
}

TEST_F(GnomeWorkspaceTest, whoSaysNothingIsAnotherApplicationAndNotTheLastOne) {
    open();
    TellingProgram editor(desktop.address(), u"editor"_s);
    editor.tell(true);
    ASSERT_TRUE(waitForFront(u"editor"_s));
    editor.tell(false);
    ASSERT_TRUE(
        eventually([&] { return accessible->now().kind == AccessibleWindow::Kind::untold; }));
    EXPECT_TRUE(waitForFront(u"editor"_s)) << "the next word may be on its way";
    runLoop.advance(0.31);
    EXPECT_EQ(workspace->frontmostApplication(),
              (RunningApplication{u"zeph.untold"_s, u"Another app"_s, std::nullopt}));
}

TEST_F(GnomeWorkspaceTest, betweenTwoThatTellThereIsNoThird) {
    open();
    TellingProgram editor(desktop.address(), u"editor"_s);
    TellingProgram viewer(desktop.address(), u"viewer"_s);
    editor.tell(true);
    ASSERT_TRUE(waitForFront(u"editor"_s));
    editor.tell(false);
    ASSERT_TRUE(
        eventually([&] { return accessible->now().kind == AccessibleWindow::Kind::untold; }));
    runLoop.advance(0.2);
    viewer.tell(true);
    ASSERT_TRUE(waitForFront(u"viewer"_s));
    runLoop.advance(1);
    EXPECT_EQ(seen, (QStringList{u"Editor"_s, u"viewer"_s}));
}

TEST_F(GnomeWorkspaceTest, nothingIsKnownBeforeTheFirstWord) {
    open(ConsentState::denied);
    runLoop.advance(1);
    EXPECT_EQ(workspace->frontmostApplication(), std::nullopt);
}

TEST_F(GnomeWorkspaceTest, withoutConsentWhatFollowsAnX11WindowIsAnotherApplication) {
    open(ConsentState::denied);
    const auto window = activateX11();
    deactivateX11(window);
    runLoop.advance(0.31);
    EXPECT_TRUE(waitForFront(u"zeph.untold"_s));
}

} // namespace zeph
