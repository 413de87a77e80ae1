// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

/// The programs that draw a desktop with icons, by how a wallpaper can live with them.
enum class DesktopProgram { xfdesktop, caja, pcmanfm, pcmanfmQt, nemoDesktop, ding, plasmashell };

} // namespace zeph
