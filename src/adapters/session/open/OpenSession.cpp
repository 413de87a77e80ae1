// SPDX-License-Identifier: MIT
#include "adapters/session/open/OpenSession.h"

#include "adapters/session/open/SwayParts.h"
#include "adapters/session/wayland/WaylandSession.h"
#include "adapters/session/x11/X11Session.h"
#include "base/Log.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// By what the compositor offers beside the protocol.
std::unique_ptr<SessionParts> makeSessionParts(const SessionSurroundings &surroundings) {
    const QString sway = qEnvironmentVariable("SWAYSOCK");
    if (!sway.isEmpty()) {
        return std::make_unique<SwayParts>(surroundings.runLoop, surroundings.entries, sway);
    }
    return std::make_unique<UnknownParts>();
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
    const auto makeParts = [&surroundings](WaylandConnection & /*connection*/,
                                           WaylandOutputs & /*outputs*/) {
        return makeSessionParts(surroundings);
    };
    return openSession(
        qgetenv("WAYLAND_DISPLAY"),
        {[&makeParts](const QByteArray &display) {
             return WaylandSession::open(makeParts, display);
         },
         [&surroundings] {
             return X11Session::open({surroundings.entries, surroundings.inputConsent});
         }});
}

QByteArray toolkitPlatform(bool hasX11, bool hasWayland) {
    if (hasX11) {
        return "xcb";
    }
    return hasWayland ? "wayland" : "";
}

} // namespace zeph
