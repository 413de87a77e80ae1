// SPDX-License-Identifier: MIT
#include "host/SpacesManager.h"

#include "host/SpaceWindow.h"
#include "ports/RunLoop.h"
#include "ports/SurfaceSpaces.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zeph {

namespace {

// Display systems apply moves late, and sometimes in part: seven looks within some 0.3 seconds.
constexpr std::chrono::milliseconds kBetweenPasses{50};
constexpr int kLastAttempt = 6;

/// The workspaces of the display that have one of these numbers.
std::set<quint64> targetsOf(const std::optional<std::set<int>> &toDesktops,
                            const std::optional<QString> &onDisplay,
                            const SpaceSnapshot &snapshot) {
    std::set<quint64> targets;
    if (toDesktops) {
        for (const DesktopSpace &desktop : desktopsOn(onDisplay, snapshot)) {
            if (toDesktops->contains(desktop.index)) {
                targets.insert(desktop.id);
            }
        }
    }
    return targets;
}

/// Whether the window is where it belongs. Whether a window that was ordered out is listed on the
/// workspace in sight is of no account.
bool isSettled(const std::set<quint64> &current, const std::set<quint64> &targets,
               std::optional<quint64> active) {
    const bool hasLeft = std::all_of(current.begin(), current.end(), [&](quint64 space) {
        return targets.contains(space) || space == active;
    });
    return hasLeft && std::includes(current.begin(), current.end(), targets.begin(), targets.end());
}

} // namespace

SpacesManager::SpacesManager(const VirtualDesktops &desktops, SurfaceSpaces &spaces,
                             RunLoop &runLoop, std::function<std::vector<SpaceWindow *>()> windows)
    : m_desktops(desktops), m_spaces(spaces), m_runLoop(runLoop), m_windows(std::move(windows)) {}

SpaceSnapshot SpacesManager::snapshot() const {
    return snapshotOf(m_desktops.managedDisplays());
}

void SpacesManager::pin(SpaceWindow &window, const std::optional<std::set<int>> &toDesktops,
                        const std::optional<QString> &onDisplay) {
    forgetClosedWindows();
    const SpaceSnapshot now = snapshot();
    const std::set<quint64> targets = targetsOf(toDesktops, onDisplay, now);
    if (targets.empty()) {
        showOnAll(window);
        return;
    }
    m_intent[window.windowNumber()] = targets;
    if (window.spaceBehavior() != SpaceBehavior::pinned) {
        window.setSpaceBehavior(SpaceBehavior::pinned);
    }
    settle({.window = window.windowNumber(),
            .targets = targets,
            .clearing = {now.everySpaceID.begin(), now.everySpaceID.end()},
            .active = activeSpaceOn(onDisplay, now)},
           0);
}

bool SpacesManager::isWantedNow(const std::optional<std::set<int>> &toDesktops,
                                const std::optional<QString> &onDisplay) const {
    const SpaceSnapshot now = snapshot();
    const std::set<quint64> targets = targetsOf(toDesktops, onDisplay, now);
    const auto active = activeSpaceOn(onDisplay, now);
    return targets.empty() || !active || targets.contains(*active);
}

void SpacesManager::forgetClosedWindows() {
    std::erase_if(m_intent, [this](const auto &entry) { return find(entry.first) == nullptr; });
}

void SpacesManager::showOnAll(SpaceWindow &window) {
    m_intent[window.windowNumber()] = {};
    window.setSpaceBehavior(SpaceBehavior::allSpaces);
    if (!window.isVisible()) {
        window.orderFrontRegardless();
    }
}

void SpacesManager::settle(const Pinning &pinning, int attempt) {
    const auto meant = m_intent.find(pinning.window);
    if (meant == m_intent.end() || meant->second != pinning.targets) {
        return; // a newer pin has taken over
    }
    SpaceWindow *window = find(pinning.window);
    if (window == nullptr || m_desktops.managedDisplays().empty()) {
        return;
    }
    if (!pinning.clearing.empty()) {
        m_spaces.remove(pinning.window, pinning.clearing);
    }
    m_spaces.add(pinning.window, pinning.targets);
    const std::set<quint64> current = m_spaces.spacesOf(pinning.window);
    if (pinning.active) {
        const bool belongs = pinning.targets.contains(*pinning.active);
        if (!belongs && current.contains(*pinning.active)) {
            window->orderOut();
        } else if (belongs && !window->isVisible()) {
            window->orderFrontRegardless();
        }
    }
    if (!isSettled(current, pinning.targets, pinning.active) && attempt < kLastAttempt) {
        m_runLoop.after(kBetweenPasses, m_passes.whileAlive([this, pinning, attempt] {
            settle(pinning, attempt + 1);
        }));
    }
}

SpaceWindow *SpacesManager::find(int windowNumber) const {
    const auto windows = m_windows();
    const auto found = std::find_if(windows.begin(), windows.end(), [&](const SpaceWindow *window) {
        return window->windowNumber() == windowNumber;
    });
    return found == windows.end() ? nullptr : *found;
}

} // namespace zeph
