// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "ports/Port.h"

#include <QString>

#include <functional>
#include <optional>

namespace zeph {

/// What would draw icons on the desktop.
enum class IconDrawer {
    there, ///< and does or does not, as the setting says
    off,   ///< since `DesktopShell::hideIcons`, or it never was on
    none,  ///< so that there is nothing to hide or to show
};

/// The desktop's own setting of whether icons are shown on the desktop.
struct IconSetting {
    bool areShown = true; ///< never unless the drawer is there
    QString value = {};   ///< the setting in the desktop's own words, for `DesktopShell::showIcons`
    IconDrawer drawer = IconDrawer::there;

    bool operator==(const IconSetting &) const = default;
};

/// What became of a change.
enum class ShellOutcome {
    done,        ///< the desktop took it; whether it took effect is seen by reading
    refused,     ///< the desktop did not take it
    unavailable, ///< there is no such setting, or nobody who would take it
};

/// Reads and writes that setting. Each call may take as long as the desktop's tool does, so none
/// but `canHideIcons` and `subscribeToDrawer` is made on the main thread; changes are made one
/// after the other.
class DesktopShell : public Port {
public:
    /// False where the desktop has no such setting; then nothing else has an effect.
    virtual bool canHideIcons() const = 0;

    /// Of the desktop, in small letters: what is kept of its setting goes by it. Empty where there
    /// is no such setting.
    virtual QString name() const = 0;

    /// Absent where it can't be read.
    virtual std::optional<IconSetting> iconSetting() const = 0;

    /// Whether icons may be hidden though their setting can't be read. Not where the setting lasts:
    /// what it was would be lost.
    virtual bool hidesUnread() const { return false; }

    /// What to keep for `showIcons` of two values that were read one after the other, with
    /// `hideIcons` in between: the later, unless it tells of a part of the desktop only.
    virtual QString mergedValue(const QString & /*earlier*/, const QString &later) const {
        return later;
    }

    virtual ShellOutcome hideIcons() = 0;

    /// Shows them as that value of an earlier setting says; as the desktop does by itself where it
    /// is empty, or can't be understood. What shows icons already was set by the user since, and is
    /// left alone.
    virtual ShellOutcome showIcons(const QString &earlier) = 0;

    /// Has the desktop follow its setting, where it does not by itself.
    virtual ShellOutcome relaunch() = 0;

    /// Calls `handler` on the main thread when what draws the icons may have come or gone, where it
    /// comes with icons though they were hidden before. Never where the setting lasts.
    [[nodiscard]] virtual Subscription
    subscribeToDrawer(const std::function<void()> & /*handler*/) {
        return {};
    }
};

} // namespace zeph
