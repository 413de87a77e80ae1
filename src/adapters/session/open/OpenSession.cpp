// SPDX-License-Identifier: MIT
#include "adapters/session/open/OpenSession.h"

#include "adapters/session/gnome/GnomeSession.h"
#include "adapters/session/open/KWinParts.h"
#include "adapters/session/open/ProtocolParts.h"
#include "adapters/session/open/SwayParts.h"
#include "adapters/session/plasma/PlasmaSession.h"
#include "adapters/session/wayland/WaylandSession.h"
#include "adapters/session/x11/X11Session.h"
#include "base/Log.h"

#include <QDBusConnection>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

bool isCurrentDesktop(const QString &name) {
    return qEnvironmentVariable("XDG_CURRENT_DESKTOP").split(u':').contains(name);
}

/// With what Plasma adds where that is the desktop.
template <typename Session>
OpenedSession onItsDesktop(std::unique_ptr<Session> session,
                           const SessionSurroundings &surroundings) {
    if (!session || !isCurrentDesktop(u"KDE"_s)) {
        return {std::move(session), {}};
    }
    auto &server = session->windowServer();
    return {std::make_unique<PlasmaSession>(
                std::move(session),
                [&server](const PlasmaPermission &permission) { server.permitPlasma(permission); },
                PlasmaSession::Surroundings{QDBusConnection::sessionBus(), surroundings.defaults,
                                            surroundings.background, surroundings.runLoop}),
            {}};
}

/// By what the compositor offers beside the protocol.
std::unique_ptr<SessionParts> makeSessionParts(const SessionSurroundings &surroundings,
                                               WaylandConnection &connection,
                                               WaylandOutputs &outputs) {
    const QString sway = qEnvironmentVariable("SWAYSOCK");
    if (!sway.isEmpty()) {
        return std::make_unique<SwayParts>(surroundings, connection, outputs, sway);
    }
    if (isCurrentDesktop(u"KDE"_s)) {
        return std::make_unique<KWinParts>(surroundings, connection, QDBusConnection::sessionBus());
    }
    return std::make_unique<ProtocolParts>(surroundings, connection);
}

OpenedSession openWaylandSession(const SessionSurroundings &surroundings,
                                 const QByteArray &display) {
    const auto makeParts = [&surroundings](WaylandConnection &connection, WaylandOutputs &outputs) {
        return makeSessionParts(surroundings, connection, outputs);
    };
    auto opened = WaylandSession::open(makeParts, display);
    if (!opened.session) {
        return {nullptr, opened.refusal};
    }
    return onItsDesktop(std::move(opened.session), surroundings);
}

/// The X server of a Wayland compositor tells of its own windows and input alone.
OpenedSession openX11Session(const SessionSurroundings &surroundings, bool isOfWayland) {
    auto opened = X11Session::open({surroundings.entries, surroundings.inputConsent});
    if (!opened.session) {
        return {nullptr, opened.refusal};
    }
    if (!isOfWayland) {
        return onItsDesktop(std::move(opened.session), surroundings);
    }
    return {std::make_unique<GnomeSession>(
                std::move(opened.session),
                GnomeSession::Surroundings{QDBusConnection::sessionBus(), surroundings.background,
                                           surroundings.entries, surroundings.inputConsent,
                                           surroundings.runLoop}),
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
                                        return openX11Session(surroundings, !compositor.isEmpty());
                                    }});
}

QByteArray toolkitPlatform(bool hasX11, bool hasWayland) {
    if (hasX11) {
        return "xcb";
    }
    return hasWayland ? "wayland" : "";
}

} // namespace zeph
