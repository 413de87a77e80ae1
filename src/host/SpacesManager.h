// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"
#include "host/SpaceSnapshot.h"

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace zeph {

class RunLoop;
class SpaceWindow;
class SurfaceSpaces;

/// Keeps windows to the workspaces that the user chose. Where the desktop has no workspaces they
/// are on all there are. Main thread only.
class SpacesManager {
public:
    /// Window number → the workspaces that the window is meant to be on at present; none of them
    /// for all.
    using Intent = std::map<int, std::set<quint64>>;

    /// `windows` answers all windows that there are at the time.
    SpacesManager(const VirtualDesktops &desktops, SurfaceSpaces &spaces, RunLoop &runLoop,
                  std::function<std::vector<SpaceWindow *>()> windows);
    SpacesManager(const SpacesManager &) = delete;
    SpacesManager &operator=(const SpacesManager &) = delete;

    SpaceSnapshot snapshot() const;

    /// Shows `window` on the workspaces of its display with these numbers, on all of them when the
    /// numbers are absent or no workspace has one. To be called again whenever a workspace comes,
    /// goes or becomes the current one.
    void pin(SpaceWindow &window, const std::optional<std::set<int>> &toDesktops,
             const std::optional<QString> &onDisplay);

    /// Whether the workspace in sight is one of those that `pin` would show a window on. A window
    /// that is made for another one is better not shown at all before.
    bool isWantedNow(const std::optional<std::set<int>> &toDesktops,
                     const std::optional<QString> &onDisplay) const;

    const Intent &intent() const { return m_intent; }

private:
    struct Pinning {
        int window = 0;
        std::set<quint64> targets;
        std::set<quint64> clearing; ///< the window leaves all of these first
        std::optional<quint64> active;
    };

    void forgetClosedWindows();
    void showOnAll(SpaceWindow &window);
    void settle(const Pinning &pinning, int attempt);
    SpaceWindow *find(int windowNumber) const;

    const VirtualDesktops &m_desktops;
    SurfaceSpaces &m_spaces;
    RunLoop &m_runLoop;
    std::function<std::vector<SpaceWindow *>()> m_windows;
    Intent m_intent;
    WorkOwner m_passes;
};

} // namespace zeph
