// SPDX-License-Identifier: MIT
#include "sway/FakeSway.h"
#include "wayland/FakeCompositor.h"
#include "x11/X11Fixture.h"

#include "adapters/apps/InstalledEntries.h"
#include "adapters/bus/PrivateBus.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/session/gnome/GnomeSession.h"
#include "adapters/session/nemo/NemoSession.h"
#include "adapters/session/open/KWinParts.h"
#include "adapters/session/open/OpenSession.h"
#include "adapters/session/open/ProtocolParts.h"
#include "adapters/session/open/SwayParts.h"
#include "adapters/session/plasma/PlasmaSession.h"
#include "adapters/session/wayland/WaylandSession.h"
#include "base/Background.h"
#include "support/FakeConsent.h"
#include "support/FakeInputEvents.h"
#include "support/FakeUserDefaults.h"
#include "support/FakeVirtualDesktops.h"
#include "support/FakeWindowServer.h"
#include "support/FakeWorkspace.h"
#include "support/ManualTaskExecutor.h"
#include "support/QtPrinters.h"

#include <set>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// What all sessions are opened with. Nobody else is on the bus.
struct Around {
    PrivateBus bus;
    BusConnection ours{bus.address()};
    FakeConsent consent;
    FakeUserDefaults defaults;
    ManualTaskExecutor executor;
    QtRunLoop runLoop;
    Background background = Background::over(executor, runLoop);
    InstalledEntries installed;

    SessionSurroundings surroundings() {
        return {installed.entries(), consent, runLoop, background, defaults};
    }

    template <typename Session>
    std::unique_ptr<DisplaySession> withPlasma(std::unique_ptr<Session> own) {
        auto &server = own->windowServer();
        return std::make_unique<PlasmaSession>(
            std::move(own),
            [&server](const PlasmaPermission &permission) { server.permitPlasma(permission); },
            PlasmaSession::Surroundings{ours.bus(), defaults, background, runLoop});
    }
};

/// An X server of 1280 × 800.
struct XDisplay : Around {
    std::unique_ptr<X11Session> openX11() {
        return X11Session::open({installed.entries(), consent}, server.display()).session;
    }
    void giveConsent() { consent.set(ConsentState::granted); }
    void changeDisplays() const {
        server.run(
            {u"xrandr"_s, u"--setmonitor"_s, u"left"_s, u"640/100x800/100+0+0"_s, u"screen"_s});
    }
    void end() { server.killServer(); }

    XvfbSession server;
};

struct X11Kind : XDisplay {
    std::unique_ptr<DisplaySession> open() { return openX11(); }
};

struct NemoKind : XDisplay {
    std::unique_ptr<DisplaySession> open() {
        return std::make_unique<NemoSession>(openX11(),
                                             NemoSession::Surroundings{defaults, runLoop, false});
    }
};

struct PlasmaOnX11Kind : XDisplay {
    std::unique_ptr<DisplaySession> open() { return withPlasma(openX11()); }
};

struct GnomeKind : XDisplay {
    std::unique_ptr<DisplaySession> open() {
        return std::make_unique<GnomeSession>(
            openX11(), GnomeSession::Surroundings{ours.bus(), background, installed.entries(),
                                                  consent, runLoop});
    }
};

/// A compositor with one output of 400 × 300.
struct LayerDisplay : Around {
    template <typename Parts, typename... Arguments>
    std::unique_ptr<WaylandSession> openWith(const Arguments &...arguments) {
        return WaylandSession::open(
                   [&](WaylandConnection &connection, WaylandOutputs &outputs) {
                       return makeParts<Parts>(connection, outputs, arguments...);
                   },
                   compositor.socket())
            .session;
    }
    void giveConsent() { consent.set(ConsentState::granted); }
    void changeDisplays() {
        FakeOutput larger;
        larger.mode = larger.points = {800, 600};
        compositor.changeOutput(larger);
    }
    void end() { compositor.thread().end(); }

    FakeCompositor compositor;

private:
    template <typename Parts, typename... Arguments>
    std::unique_ptr<SessionParts> makeParts(WaylandConnection &connection, WaylandOutputs &outputs,
                                            const Arguments &...arguments) {
        if constexpr (std::is_same_v<Parts, SwayParts>) {
            return std::make_unique<Parts>(surroundings(), connection, outputs, arguments...);
        } else {
            return std::make_unique<Parts>(surroundings(), connection, arguments...);
        }
    }
};

struct ProtocolKind : LayerDisplay {
    std::unique_ptr<DisplaySession> open() { return openWith<ProtocolParts>(); }
};

struct SwayKind : LayerDisplay {
    std::unique_ptr<DisplaySession> open() { return openWith<SwayParts>(sway.path()); }

    FakeSway sway;
};

struct KWinKind : LayerDisplay {
    std::unique_ptr<DisplaySession> open() { return withPlasma(openWith<KWinParts>(ours.bus())); }
};

/// The one of the tests of everything above.
struct FakeKind {
    struct Session : DisplaySession {
        Screens &screens() override { return allScreens; }
        WindowServer &windowServer() override { return server; }
        Workspace &workspace() override { return front; }
        InputEvents &inputEvents() override { return input; }
        VirtualDesktops &virtualDesktops() override { return desktops; }

        FakeScreens allScreens;
        FakeWindowServer server;
        FakeWorkspace front;
        FakeInputEvents input;
        FakeVirtualDesktops desktops;
    };

    std::unique_ptr<DisplaySession> open() {
        auto made = std::make_unique<Session>();
        made->allScreens.screens = {screen(u"first"_s, 1, 400, 300)};
        made->input.trusted = false;
        session = made.get();
        return made;
    }
    void giveConsent() const { session->input.setTrusted(true); }
    void changeDisplays() const { session->allScreens.change({screen(u"first"_s, 1, 800, 600)}); }
    void end() const { session->server.lose(); }

    Session *session = nullptr;
};

template <typename Kind>
class SessionContract : public testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(session); }

    Kind kind;
    std::unique_ptr<DisplaySession> session = kind.open();
};

using Kinds = testing::Types<X11Kind, NemoKind, PlasmaOnX11Kind, GnomeKind, ProtocolKind, SwayKind,
                             KWinKind, FakeKind>;
TYPED_TEST_SUITE(SessionContract, Kinds);

TYPED_TEST(SessionContract, tellsItsDisplaysApartTheMainOneFirst) {
    const auto screens = this->session->screens().all();
    ASSERT_FALSE(screens.empty());
    EXPECT_EQ(this->session->screens().main(), screens.front());
    std::set<QString> identities;
    for (const Screen &one : screens) {
        EXPECT_TRUE(one.displayID);
        EXPECT_TRUE(identities.insert(one.persistentID.value_or(QString())).second);
        EXPECT_FALSE(one.frame.isEmpty());
        EXPECT_TRUE(one.frame.contains(one.visibleFrame));
        EXPECT_EQ(one.deviceFrame.size(), (one.frame.size() * one.scale).toSize());
    }
}

TYPED_TEST(SessionContract, makesAHiddenSurfaceForEachDisplay) {
    for (const Screen &one : this->session->screens().all()) {
        const auto surface = this->session->windowServer().makeDesktopSurface(one, false);
        ASSERT_TRUE(surface);
        EXPECT_FALSE(surface->isTransparent());
        EXPECT_EQ(pixelsOf(*surface).size(), one.deviceFrame.size());
    }
}

TYPED_TEST(SessionContract, tellsAllListenersOfAChangeUntilTheyEnd) {
    Screens &screens = this->session->screens();
    const auto before = screens.all();
    int first = 0;
    int second = 0;
    int ended = 0;
    const Subscription one = screens.subscribe([&] { ++first; });
    const Subscription another = screens.subscribe([&] { ++second; });
    {
        const Subscription over = screens.subscribe([&] { ++ended; });
    }
    this->kind.changeDisplays();
    EXPECT_TRUE(waitUntil([&] { return first > 0 && second > 0; }));
    EXPECT_NE(screens.all(), before);
    EXPECT_EQ(first, second);
    EXPECT_EQ(ended, 0);
}

TYPED_TEST(SessionContract, knowsWorkspacesOfWhichOneIsCurrentOrNone) {
    for (const ManagedDisplay &one : this->session->virtualDesktops().managedDisplays()) {
        std::set<quint64> ids;
        for (const ManagedSpace &space : one.spaces) {
            EXPECT_TRUE(ids.insert(space.id).second);
        }
        EXPECT_TRUE(!one.currentSpace || ids.count(*one.currentSpace) == 1);
    }
    const Subscription changes = this->session->virtualDesktops().subscribe([] {});
}

TYPED_TEST(SessionContract, hasNoApplicationInFrontWhereNobodyOpenedOne) {
    EXPECT_EQ(this->session->workspace().frontmostApplication(), std::nullopt);
}

TYPED_TEST(SessionContract, givesNoInputWithoutTheUsersConsent) {
    InputEvents &input = this->session->inputEvents();
    EXPECT_FALSE(input.isTrusted());
    EXPECT_EQ(input.makeTap([](const InputEvent &) {}), nullptr);
    EXPECT_GE(input.secondsSinceLastEvent(), 0);
    int told = 0;
    const Subscription trust = input.subscribeToTrust([&] { ++told; });
    this->kind.giveConsent();
    EXPECT_TRUE(input.isTrusted());
    EXPECT_EQ(told, 1);
    EXPECT_EQ(input.makeTap([](const InputEvent &) {}) != nullptr, input.canCountKeys());
}

TYPED_TEST(SessionContract, tellsOnceThatItsDisplayIsGoneAndCanBeAskedOn) {
    int losses = 0;
    const Subscription loss = this->session->windowServer().subscribeToLoss([&] { ++losses; });
    const auto screens = this->session->screens().all();
    const auto surface = this->session->windowServer().makeDesktopSurface(screens.front(), false);
    surface->orderFront();
    fill(*surface, Qt::blue);
    this->kind.end();
    ASSERT_TRUE(waitUntil([&] { return losses > 0; }));
    fill(*surface, Qt::red);
    surface->orderOut();
    surface->setScreen(screen(u"another"_s, 7, 100, 100));
    EXPECT_EQ(this->session->screens().all(), screens) << "as they were";
    this->session->virtualDesktops().managedDisplays();
    this->session->workspace().frontmostApplication();
    this->session->inputEvents().secondsSinceLastEvent();
    this->session->leave(std::chrono::milliseconds(0));
    QCoreApplication::processEvents();
    EXPECT_EQ(losses, 1);
}

TYPED_TEST(SessionContract, leavesWhileItsSurfacesAreThere) {
    const auto surface = this->session->windowServer().makeDesktopSurface(
        this->session->screens().all().front(), false);
    surface->orderFront();
    fill(*surface, Qt::blue);
    this->session->leave(std::chrono::milliseconds(0));
    this->session->leave(std::chrono::milliseconds(0));
    EXPECT_FALSE(this->session->screens().all().empty());
}

} // namespace

} // namespace zeph
