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
    void plugSecond() const {
        server.run(
            {u"xrandr"_s, u"--setmonitor"_s, u"left"_s, u"640/100x800/100+0+0"_s, u"screen"_s});
        server.run(
            {u"xrandr"_s, u"--setmonitor"_s, u"right"_s, u"640/100x800/100+640+0"_s, u"none"_s});
    }
    bool makeWorkspaces() { return server.startOpenbox(); }
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
    void plugSecond() {
        compositor.addOutput({.name = "DP-2",
                              .model = "P24",
                              .description = "Acme P24 7 (DP-2)",
                              .position = {400, 0}});
    }
    static bool makeWorkspaces() { return false; }
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
    bool makeWorkspaces() {
        // It was asked already, and answers in the next turn of the loop.
        sway.answers[1] = R"([{"id": 4, "num": 1, "name": "1", "focused": true, "visible": true,
                               "output": "DP-1"},
                              {"id": 9, "num": 2, "name": "2", "focused": false, "visible": false,
                               "output": "DP-1"}])";
        return true;
    }

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
    void plugSecond() const {
        session->allScreens.change(
            {screen(u"first"_s, 1, 400, 300), screen(u"second"_s, 2, 400, 300, 400)});
    }
    bool makeWorkspaces() const {
        session->desktops.change({display(2, 1)});
        return true;
    }
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
    ASSERT_EQ(this->session->screens().all().size(), 1U);
    this->kind.plugSecond();
    ASSERT_TRUE(waitUntil([&] { return this->session->screens().all().size() == 2; }));
    const auto screens = this->session->screens().all();
    EXPECT_EQ(this->session->screens().main(), screens.front());
    EXPECT_EQ(screens.front().frame.topLeft(), QPointF());
    std::set<QString> identities;
    std::set<quint32> numbers;
    for (const Screen &one : screens) {
        ASSERT_TRUE(one.displayID && one.persistentID);
        EXPECT_TRUE(numbers.insert(*one.displayID).second);
        EXPECT_TRUE(identities.insert(*one.persistentID).second);
        EXPECT_FALSE(one.visibleFrame.isEmpty());
        EXPECT_TRUE(one.frame.contains(one.visibleFrame));
        EXPECT_EQ(one.deviceFrame.size(), (one.frame.size() * one.scale).toSize());
    }
}

TYPED_TEST(SessionContract, makesASurfaceForADisplay) {
    const Screen display = this->session->screens().all().front();
    const auto surface = this->session->windowServer().makeDesktopSurface(display, false);
    ASSERT_TRUE(surface);
    EXPECT_FALSE(surface->isTransparent());
    EXPECT_EQ(pixelsOf(*surface).size(), display.deviceFrame.size());
}

TYPED_TEST(SessionContract, tellsAllListenersOfAChangeUntilTheyEnd) {
    Screens &screens = this->session->screens();
    int first = 0;
    int second = 0;
    int ended = 0;
    const Subscription one = screens.subscribe([&] { ++first; });
    const Subscription another = screens.subscribe([&] { ++second; });
    {
        const Subscription over = screens.subscribe([&] { ++ended; });
    }
    this->kind.plugSecond();
    EXPECT_TRUE(waitUntil([&] { return first > 0 && second > 0; }));
    EXPECT_EQ(first, second);
    EXPECT_EQ(ended, 0);
}

TYPED_TEST(SessionContract, knowsTheWorkspacesAndWhichOneIsCurrentWhereThereAreAny) {
    VirtualDesktops &desktops = this->session->virtualDesktops();
    EXPECT_TRUE(desktops.managedDisplays().empty());
    int told = 0;
    const Subscription changes = desktops.subscribe([&] { ++told; });
    if (!this->kind.makeWorkspaces()) {
        return; // nobody tells of them
    }
    ASSERT_TRUE(waitUntil([&] { return !desktops.managedDisplays().empty(); }));
    EXPECT_GT(told, 0);
    for (const ManagedDisplay &one : desktops.managedDisplays()) {
        EXPECT_GT(one.spaces.size(), 1U);
        std::set<quint64> ids;
        for (const ManagedSpace &space : one.spaces) {
            EXPECT_TRUE(ids.insert(space.id).second);
        }
        EXPECT_EQ(ids.count(one.currentSpace.value_or(0)), 1U);
    }
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
