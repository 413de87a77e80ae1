// SPDX-License-Identifier: MIT
#pragma once

#include "ports/DesktopShell.h"

namespace zeph {

/// A desktop that has no setting of its own for its icons.
class NoDesktopShell : public DesktopShell {
public:
    bool canHideIcons() const override { return false; }
    bool areIconsShown() const override { return true; }
    void setIconsShown(bool /*areShown*/) override {}
    void relaunch() override {}
};

} // namespace zeph
