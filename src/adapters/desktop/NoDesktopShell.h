// SPDX-License-Identifier: MIT
#pragma once

#include "ports/DesktopShell.h"

namespace zeph {

/// A desktop that has no setting of its own for its icons.
class NoDesktopShell : public DesktopShell {
public:
    bool canHideIcons() const override { return false; }
    QString name() const override { return {}; }
    std::optional<IconSetting> iconSetting() const override { return std::nullopt; }
    ShellOutcome hideIcons() override { return ShellOutcome::unavailable; }
    ShellOutcome showIcons(const QString & /*earlier*/) override {
        return ShellOutcome::unavailable;
    }
    ShellOutcome relaunch() override { return ShellOutcome::unavailable; }
};

} // namespace zeph
