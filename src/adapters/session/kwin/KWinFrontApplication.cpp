// SPDX-License-Identifier: MIT
#include "adapters/session/kwin/KWinFrontApplication.h"

#include "adapters/apps/OwnApplication.h"
#include "adapters/apps/RunningProgram.h"
#include "ports/RunLoop.h"

#include <chrono>
#include <utility>

namespace zeph {

namespace {

// Between two windows KWin tells of none, for some milliseconds.
constexpr std::chrono::milliseconds kBetweenWindows{50};

ApplicationHints hintsOf(const KWinWindow &window) {
    return {.desktopFile = window.desktopFile,
            .gtkApplicationId = window.desktopFile,
            .windowClass = window.windowClass,
            .windowInstance = {},
            .program = programOfProcess(window.process)};
}

} // namespace

KWinFrontApplication::KWinFrontApplication(KWinScript &script, DesktopEntries &entries,
                                           RunLoop &runLoop)
    : m_runLoop(runLoop),
      m_front(entries),
      m_windows(script.subscribeToFront(
          [this](const std::optional<KWinWindow> &window) { windowActivated(window); })) {}

Subscription KWinFrontApplication::subscribeToActivations(
    std::function<void(const RunningApplication &)> handler) {
    return m_front.subscribeToActivations(std::move(handler));
}

void KWinFrontApplication::windowActivated(const std::optional<KWinWindow> &window) {
    ++m_turn;
    const auto hints = window ? std::optional(hintsOf(*window)) : std::nullopt;
    if (hints && !isOwnApplication(*hints)) {
        m_front.set(hints);
        return;
    }
    const auto settle = [this, turn = m_turn] {
        if (turn == m_turn) {
            m_front.set(std::nullopt);
        }
    };
    m_runLoop.after(kBetweenWindows, m_owner.whileAlive(settle));
}

} // namespace zeph
