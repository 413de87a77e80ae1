// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwayWorkspace.h"

#include "adapters/apps/OwnApplication.h"
#include "adapters/apps/RunningProgram.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

ApplicationHints hintsOf(const SwayWindowFacts &window) {
    ApplicationHints hints;
    if (window.applicationId.isEmpty()) {
        hints.windowClass = window.windowClass;
        hints.windowInstance = window.windowInstance;
    } else {
        // By custom the name of the desktop entry; where it isn't, often its last part is.
        hints.desktopFile = window.applicationId;
        hints.gtkApplicationId = window.applicationId;
        hints.windowClass = window.applicationId;
    }
    if (window.process > 0) {
        hints.program = programOfProcess(window.process);
    }
    return hints;
}

} // namespace

SwayWorkspace::SwayWorkspace(SwayIpc &ipc, DesktopEntries &entries)
    : m_ipc(ipc),
      m_front(entries),
      m_starts(ipc.subscribeToStart([this] { start(); })),
      m_ends(ipc.subscribeToEnd([this] { setFocused(std::nullopt); })),
      m_windows(
          ipc.subscribeToWindows([this](const SwayWindowChange &event) { windowChanged(event); })),
      m_events(ipc.subscribeToEvents(
          [this](SwayEvent kind, const QByteArray &payload) { follow(kind, payload); })) {
    start();
}

Subscription
SwayWorkspace::subscribeToActivations(std::function<void(const RunningApplication &)> handler) {
    return m_front.subscribeToActivations(std::move(handler));
}

void SwayWorkspace::start() {
    m_isTold = false;
    m_ipc.ask(SwayRequest::tree, [this](const QByteArray &payload) {
        if (!m_isTold) { // an event that came before the answer is newer
            setFocused(swayFocusedWindowIn(payload));
        }
    });
}

void SwayWorkspace::follow(SwayEvent kind, const QByteArray &payload) {
    if (kind != SwayEvent::workspace) {
        return;
    }
    const auto event = swayWorkspaceChangeIn(payload);
    // On one with windows the event of the window follows.
    if (event && event->change == u"focus" && event->isEmpty) {
        setFocused(std::nullopt);
    }
}

void SwayWorkspace::windowChanged(const SwayWindowChange &event) {
    if (event.change == u"focus") {
        setFocused(event.window);
    } else if (event.change == u"close" && event.window.id == m_focused) {
        setFocused(std::nullopt); // until another one gets the focus
    }
}

void SwayWorkspace::setFocused(const std::optional<SwayWindowFacts> &window) {
    m_isTold = true;
    m_focused = window ? std::optional(window->id) : std::nullopt;
    const auto hints = window ? std::optional(hintsOf(*window)) : std::nullopt;
    m_front.set(hints && !isOwnApplication(*hints) ? hints : std::nullopt);
}

} // namespace zeph
