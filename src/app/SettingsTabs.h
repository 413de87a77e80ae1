// SPDX-License-Identifier: MIT
#pragma once

#include "ui/settings/SettingsWindow.h"

#include <vector>

namespace zeph {

class Background;

namespace ui {
struct SettingsContext;
}

/// The tab where the user allows what the program may know.
inline constexpr int permissionsTab = 4;

/// The tab that tells of newer versions of the program.
inline constexpr int updatesTab = 5;

/// The tabs of the settings, in order. `context` and `files` outlive what they make;
/// `desktopFolder` is how people write the folder's path.
std::vector<ui::SettingsWindow::Tab> settingsTabs(const ui::SettingsContext &context,
                                                  const QString &desktopFolder,
                                                  const Background &files);

} // namespace zeph
