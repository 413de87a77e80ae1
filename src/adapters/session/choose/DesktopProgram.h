// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// The programs that draw a desktop with icons, by how a wallpaper can live with them.
enum class DesktopProgram { xfdesktop, caja, pcmanfm, pcmanfmQt, nemoDesktop, ding, plasmashell };

/// The program behind a window of the desktop type, by the class that the window gives and, where
/// it gives one, the id of its GTK application; absent for those that draw no icons.
std::optional<DesktopProgram> desktopProgramOf(const QString &windowClass,
                                               const QString &gtkApplicationId);

} // namespace zeph
