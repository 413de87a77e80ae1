// SPDX-License-Identifier: MIT
#include "adapters/session/loss/LostDisplay.h"

#include "adapters/session/loss/DisplayWait.h"
#include "adapters/session/sway/SwaySocket.h"
#include "adapters/session/wayland/WaylandDisplay.h"
#include "adapters/session/x11/X11Display.h"

#include <QFile>

#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdlib>
#include <utility>

namespace zeph {

namespace {

using std::chrono::milliseconds;

// A compositor that runs an X server listens for its clients before long, if it does at all.
constexpr milliseconds kXServerPatience{2000};

constexpr std::array kEnds{SIGTERM, SIGINT, SIGHUP};

void endAtOnce(int /*number*/) {
    _exit(EXIT_SUCCESS); // everything was saved when the display went
}

/// While nobody listens to signals: what asks for the end gets it, unless it was to be ignored.
class SignalsThatEnd {
public:
    SignalsThatEnd() { replace(SIG_DFL, endAtOnce); }
    ~SignalsThatEnd() { replace(endAtOnce, SIG_DFL); }
    SignalsThatEnd(const SignalsThatEnd &) = delete;
    SignalsThatEnd &operator=(const SignalsThatEnd &) = delete;

private:
    using Action = void (*)(int);

    static void replace(Action before, Action next) {
        for (const int number : kEnds) {
            const Action found = std::signal(number, next);
            if (found != before) {
                std::signal(number, found);
            }
        }
    }
};

bool waitForCompositor(const QByteArray &display, milliseconds patience) {
    const auto socket = compositorSocket(display, qgetenv("XDG_RUNTIME_DIR"));
    const auto answers = [&display](milliseconds left) { return compositorAnswers(display, left); };
    if (!socket || !waitForDisplay(*socket, answers, patience)) {
        return false;
    }
    // Its own socket has another name whenever it starts.
    const auto process = compositorProcess(display);
    const QString sway = QFile::decodeName(qgetenv("SWAYSOCK"));
    if (process && !sway.isEmpty()) {
        qputenv("SWAYSOCK", QFile::encodeName(swaySocketOf(sway, *process)));
    }
    return true;
}

std::unique_ptr<X11Display> waitForXServer(milliseconds patience) {
    const auto socket = xServerSocket(qgetenv("DISPLAY"));
    std::unique_ptr<X11Display> server;
    // The library has no limit of its own, and a server that takes a connection answers.
    const auto answers = [&server](milliseconds /*left*/) {
        server = std::make_unique<X11Display>();
        return server->isReachable();
    };
    return socket && waitForDisplay(*socket, answers, patience) ? std::move(server) : nullptr;
}

} // namespace

ReturnedDisplay waitForLostDisplay(milliseconds patience) {
    const SignalsThatEnd ends;
    const QByteArray compositor = qgetenv("WAYLAND_DISPLAY");
    if (compositor.isEmpty()) {
        auto server = waitForXServer(patience);
        const bool isThere = server != nullptr;
        return {isThere, std::move(server)};
    }
    if (!waitForCompositor(compositor, patience)) {
        return {};
    }
    return {true, waitForXServer(std::min(patience, kXServerPatience))};
}

} // namespace zeph
