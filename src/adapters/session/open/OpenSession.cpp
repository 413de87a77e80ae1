// SPDX-License-Identifier: MIT
#include "adapters/session/open/OpenSession.h"

#include "adapters/kernel/PeerProcess.h"
#include "adapters/session/gnome/GnomeSession.h"
#include "adapters/session/nemo/NemoSession.h"
#include "adapters/session/open/KWinParts.h"
#include "adapters/session/open/ProtocolParts.h"
#include "adapters/session/open/SessionKinds.h"
#include "adapters/session/open/SwayParts.h"
#include "adapters/session/plasma/PlasmaSession.h"
#include "adapters/session/sway/SwaySocket.h"
#include "adapters/session/wayland/WaylandSession.h"
#include "adapters/session/x11/X11Session.h"
#include "base/Log.h"

#include <QDBusConnection>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// A compositor that is busy with a login answers late; the wallpaper would be on X for the whole
// session then.
constexpr std::chrono::seconds kLoginPatience{20};

QString currentDesktop() {
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP");
}

/// With what Plasma adds.
template <typename Session>
OpenedSession withPlasma(std::unique_ptr<Session> session,
                         const SessionSurroundings &surroundings) {
    auto &server = session->windowServer();
    return {std::make_unique<PlasmaSession>(
                std::move(session),
                [&server](const PlasmaPermission &permission) { server.permitPlasma(permission); },
                PlasmaSession::Surroundings{QDBusConnection::sessionBus(), surroundings.defaults,
                                            surroundings.background, surroundings.runLoop}),
            {}};
}

/// Where the compositor listens for its own conversation if it is sway; else empty.
QString swaySocket(const WaylandConnection &connection) {
    QString socket = qEnvironmentVariable("SWAYSOCK");
    if (socket.isEmpty() ||
        isSwayOf(socket, peerProcess(wl_display_get_fd(connection.display())))) {
        return socket;
    }
    qCInfo(logSession, "SWAYSOCK tells of no sway that is the compositor");
    return {};
}

/// By what the compositor offers beside the protocol.
std::unique_ptr<SessionParts> makeSessionParts(const SessionSurroundings &surroundings,
                                               WaylandConnection &connection,
                                               WaylandOutputs &outputs) {
    const QString sway = swaySocket(connection);
    switch (partsKind(sway, currentDesktop())) {
    case PartsKind::sway:
        return std::make_unique<SwayParts>(surroundings, connection, outputs, sway);
    case PartsKind::kwin:
        return std::make_unique<KWinParts>(surroundings, connection, QDBusConnection::sessionBus());
    case PartsKind::protocol:
        break;
    }
    return std::make_unique<ProtocolParts>(surroundings, connection);
}

OpenedSession openWaylandSession(const SessionSurroundings &surroundings,
                                 const QByteArray &display) {
    const auto makeParts = [&surroundings](WaylandConnection &connection, WaylandOutputs &outputs) {
        return makeSessionParts(surroundings, connection, outputs);
    };
    auto opened = WaylandSession::open(makeParts, display, kLoginPatience);
    if (!opened.session) {
        return {nullptr, opened.refusal};
    }
    if (desktopKind(DisplaySystem::wayland, currentDesktop()) == DesktopKind::plasma) {
        return withPlasma(std::move(opened.session), surroundings);
    }
    return {std::move(opened.session), {}};
}

OpenedSession openX11Session(const SessionSurroundings &surroundings, DisplaySystem system) {
    auto opened = X11Session::open({surroundings.entries, surroundings.inputConsent});
    if (!opened.session) {
        return {nullptr, opened.refusal};
    }
    switch (desktopKind(system, currentDesktop())) {
    case DesktopKind::plasma:
        return withPlasma(std::move(opened.session), surroundings);
    case DesktopKind::gnome:
        return {std::make_unique<GnomeSession>(
                    std::move(opened.session),
                    GnomeSession::Surroundings{QDBusConnection::sessionBus(),
                                               surroundings.background, surroundings.entries,
                                               surroundings.inputConsent, surroundings.runLoop}),
                {}};
    case DesktopKind::plain:
        break;
    }
    return {std::make_unique<NemoSession>(std::move(opened.session),
                                          NemoSession::Surroundings{surroundings.defaults,
                                                                    surroundings.runLoop,
                                                                    isCinnamon(currentDesktop())}),
            {}};
}

} // namespace

OpenedSession openSession(const QByteArray &compositor, const SessionOpeners &openers) {
    if (compositor.isEmpty()) {
        return openers.x11();
    }
    OpenedSession wayland = openers.wayland(compositor);
    if (wayland.session) {
        return wayland;
    }
    qCInfo(logSession, "X is tried, since %s", qPrintable(wayland.refusal));
    OpenedSession x11 = openers.x11();
    if (!x11.session) {
        x11.refusal = u"%1, and %2"_s.arg(wayland.refusal, x11.refusal);
    }
    return x11;
}

OpenedSession openSession(const SessionSurroundings &surroundings) {
    const QByteArray compositor = qgetenv("WAYLAND_DISPLAY");
    return openSession(compositor, {[&surroundings](const QByteArray &display) {
                                        return openWaylandSession(surroundings, display);
                                    },
                                    [&surroundings, &compositor] {
                                        return openX11Session(surroundings,
                                                              compositor.isEmpty()
                                                                  ? DisplaySystem::x11
                                                                  : DisplaySystem::xwayland);
                                    }});
}

QByteArray toolkitPlatform(bool hasX11, bool hasWayland) {
    if (hasX11) {
        return "xcb";
    }
    return hasWayland ? "wayland" : "";
}

} // namespace zeph
