// SPDX-License-Identifier: MIT
#include "adapters/session/gnome/GnomeWorkspace.h"

#include "adapters/session/x11/X11Workspace.h"
#include "ports/RunLoop.h"

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Kind = AccessibleWindow::Kind;

// Who lost the focus may say so 80 ms before the next one says that it has it.
constexpr std::chrono::milliseconds kBetweenWords{300};

RunningApplication untoldApplication() {
    return {u"zeph.untold"_s, u"Another app"_s, std::nullopt};
}

} // namespace

GnomeWorkspace::GnomeWorkspace(X11Workspace &x11, AccessibleFront &accessible,
                               DesktopEntries &entries, RunLoop &runLoop)
    : m_x11(x11), m_accessible(accessible), m_runLoop(runLoop), m_native(entries) {
    m_subscriptions.push_back(m_x11.subscribe([this] { follow(); }));
    m_subscriptions.push_back(m_native.subscribe([this] { follow(); }));
    m_subscriptions.push_back(m_accessible.subscribe([this] {
        const AccessibleWindow &window = m_accessible.now();
        m_native.set(window.kind == Kind::application ? std::optional(window.hints) : std::nullopt);
        follow();
    }));
    follow();
}

Subscription
GnomeWorkspace::subscribeToActivations(std::function<void(const RunningApplication &)> handler) {
    return m_activations.subscribe([this, handler = std::move(handler)] {
        if (const auto front = m_front) {
            handler(*front);
        }
    });
}

void GnomeWorkspace::follow() {
    ++m_turn;
    const Kind kind = m_accessible.now().kind;
    const bool isClear =
        m_x11.hasActiveWindow() || kind == Kind::application || kind == Kind::desktop;
    if (isClear) {
        choose();
        return;
    }
    m_runLoop.after(kBetweenWords, m_owner.whileAlive([this, turn = m_turn] {
        if (turn == m_turn) {
            choose();
        }
    }));
}

void GnomeWorkspace::choose() {
    if (m_x11.hasActiveWindow()) {
        m_hasSeenX11 = true;
        set(m_x11.frontmostApplication());
        return;
    }
    switch (m_accessible.now().kind) {
    case Kind::application:
        if (m_native.now()) { // else its entry is being looked for
            set(m_native.now());
        }
        break;
    case Kind::desktop:
        set(std::nullopt);
        break;
    case Kind::untold:
        set(untoldApplication());
        break;
    case Kind::notHeard:
        // Before the first word there is nothing that it could be another one than.
        set(m_hasSeenX11 ? std::optional(untoldApplication()) : std::nullopt);
        break;
    }
}

void GnomeWorkspace::set(const std::optional<RunningApplication> &front) {
    if (m_front == front) {
        return;
    }
    m_front = front;
    if (m_front) {
        m_activations.send();
    }
}

} // namespace zeph
