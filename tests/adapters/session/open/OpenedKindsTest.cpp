// SPDX-License-Identifier: MIT
#include "adapters/session/open/OpenSession.h"

#include "adapters/apps/InstalledEntries.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/session/gnome/GnomeSession.h"
#include "adapters/session/kwin/KWinVirtualDesktops.h"
#include "adapters/session/nemo/NemoSession.h"
#include "adapters/session/plasma/PlasmaSession.h"
#include "adapters/session/sway/FakeSway.h"
#include "adapters/session/sway/SwayVirtualDesktops.h"
#include "adapters/session/wayland/FakeCompositor.h"
#include "adapters/session/wayland/WaylandSession.h"
#include "base/Background.h"
#include "support/Environment.h"
#include "support/FakeConsent.h"
#include "support/FakeUserDefaults.h"
#include "support/ManualTaskExecutor.h"
#include "support/XvfbSession.h"

namespace zeph {

/// Which session stands for what the environment tells.
class OpenedKindsTest : public testing::Test {
protected:
    OpenedSession open() {
        return openSession({installed.entries(), consent, runLoop, background, defaults});
    }

    template <typename Session>
    bool opens() {
        const OpenedSession opened = open();
        return dynamic_cast<Session *>(opened.session.get()) != nullptr;
    }
    template <typename Desktops>
    bool opensWithWorkspacesOf() {
        const OpenedSession opened = open();
        return opened.session &&
               dynamic_cast<Desktops *>(&opened.session->virtualDesktops()) != nullptr;
    }

    FakeConsent consent;
    FakeUserDefaults defaults;
    ManualTaskExecutor executor;
    QtRunLoop runLoop;
    Background background = Background::over(executor, runLoop);
    InstalledEntries installed;
    ScopedVariable wayland{"WAYLAND_DISPLAY", std::nullopt};
    ScopedVariable x11{"DISPLAY", std::nullopt};
    ScopedVariable sway{"SWAYSOCK", std::nullopt};
    ScopedVariable desktop{"XDG_CURRENT_DESKTOP", std::nullopt};
};

TEST_F(OpenedKindsTest, isPlasmasOnX11UnderPlasmaAloneAndElseThatOfNemosXServer) {
    const XvfbSession server;
    x11.set(server.display());
    EXPECT_TRUE(opens<NemoSession>());
    desktop.set("GNOME");
    EXPECT_TRUE(opens<NemoSession>()) << "GNOME's own Wayland is not there";
    desktop.set("KDE");
    EXPECT_TRUE(opens<PlasmaSession>());
}

TEST_F(OpenedKindsTest, isGnomesOnTheXServerOfACompositorWithoutLayers) {
    const XvfbSession server;
    const FakeCompositor compositor({.shellVersion = 0});
    x11.set(server.display());
    wayland.set(compositor.socket());
    EXPECT_TRUE(opens<GnomeSession>());
    desktop.set("KDE");
    EXPECT_TRUE(opens<GnomeSession>());
}

TEST_F(OpenedKindsTest, isTheCompositorsWhereItHasLayers) {
    const XvfbSession server;
    const FakeCompositor compositor;
    x11.set(server.display());
    wayland.set(compositor.socket());
    EXPECT_TRUE(opens<WaylandSession>());
    EXPECT_FALSE(opensWithWorkspacesOf<SwayVirtualDesktops>());
    EXPECT_FALSE(opensWithWorkspacesOf<KWinVirtualDesktops>());
}

TEST_F(OpenedKindsTest, asksSwayWhereItIsTheCompositorAndElseKWinUnderPlasma) {
    const FakeCompositor compositor;
    const FakeSway conversation;
    wayland.set(compositor.socket());
    desktop.set("KDE");
    EXPECT_TRUE(opens<PlasmaSession>());
    EXPECT_TRUE(opensWithWorkspacesOf<KWinVirtualDesktops>());
    sway.set(conversation.path().toUtf8());
    EXPECT_TRUE(opensWithWorkspacesOf<SwayVirtualDesktops>());
    sway.set("/nonexistent/sway.sock");
    EXPECT_TRUE(opensWithWorkspacesOf<KWinVirtualDesktops>());
}

TEST_F(OpenedKindsTest, isNoneWithoutADisplay) {
    const OpenedSession opened = open();
    EXPECT_FALSE(opened.session);
    EXPECT_FALSE(opened.refusal.isEmpty());
}

} // namespace zeph
