// SPDX-License-Identifier: MIT
#pragma once

#include "base/WorkOwner.h"

#include <functional>

namespace zeph {

class Background;
class DesktopShell;
class UserDefaults;

/// Hides and shows the icons of the desktop by the desktop's own setting. What the setting was
/// before they were hidden is kept and comes back with them; where it can't be read or kept, they
/// are not hidden. Main thread only; the desktop's tools run on another.
class DesktopIconsManager {
public:
    DesktopIconsManager(DesktopShell &shell, UserDefaults &defaults, const Background &background);

    /// Whether this desktop has such a setting.
    bool canHide() const;

    /// Whether a setting from before they were hidden is kept, of this desktop.
    bool keepsEarlier() const;

    /// The same of any desktop.
    bool keepsAny() const;

    /// Asks the desktop; `told` runs on the main thread. Icons count as visible where nobody can
    /// tell, and where none are missed: without anything that draws them, unless `applyHidden`
    /// took it away.
    void systemIconsVisible(std::function<void(bool)> told);

    /// Brings the desktop to the wanted state; where the first write does not take effect, once
    /// more, and no third time. Changes asked for meanwhile come after it, in order. Afterwards
    /// `told` hears on the main thread whether the icons stay, since their setting can't be kept.
    void applyHidden(
        bool hidden, std::function<void(bool)> told = [](bool /*doStay*/) {});

private:
    DesktopShell &m_shell;
    UserDefaults &m_defaults;
    const Background &m_background;
    WorkOwner m_questions;
    WorkOwner m_changes{1};
};

} // namespace zeph
