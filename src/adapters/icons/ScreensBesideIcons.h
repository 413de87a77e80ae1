// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/icons/DesktopIconsWatch.h"
#include "ports/Screens.h"

namespace zeph {

/// Screens whose visible frame leaves out the columns that the desktop's icons take at its sides,
/// while the wallpaper lies beneath icons.
class ScreensBesideIcons : public Screens {
public:
    /// Both outlive this.
    ScreensBesideIcons(Screens &screens, DesktopIconsWatch &icons);

    std::vector<Screen> all() const override { return m_beside; }
    std::optional<Screen> main() const override;
    Subscription subscribe(std::function<void()> handler) override;

private:
    void follow();

    Screens &m_screens;
    DesktopIconsWatch &m_icons;
    std::vector<Screen> m_beside;
    std::optional<Screen> m_main;
    ChangePublisher m_changes;
    Subscription m_screenChanges;
    Subscription m_iconChanges;
};

/// The same screens with such visible frames.
std::vector<Screen> besideIcons(std::vector<Screen> screens, const DesktopIcons &icons);

} // namespace zeph
