// SPDX-License-Identifier: MIT
#include "adapters/session/choose/DesktopProgram.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace zeph {

std::optional<DesktopProgram> desktopProgramOf(const QString &windowClass,
                                               const QString &gtkApplicationId) {
    struct Row {
        QLatin1StringView windowClass;
        DesktopProgram program;
    };
    static constexpr std::array kRows{
        Row{QLatin1StringView("xfdesktop"), DesktopProgram::xfdesktop},
        Row{QLatin1StringView("caja"), DesktopProgram::caja},
        Row{QLatin1StringView("pcmanfm"), DesktopProgram::pcmanfm},
        Row{QLatin1StringView("pcmanfm-qt"), DesktopProgram::pcmanfmQt},
        Row{QLatin1StringView("nemo-desktop"), DesktopProgram::nemoDesktop},
        Row{QLatin1StringView("plasmashell"), DesktopProgram::plasmashell},
    };
    // It runs in an interpreter, after which its window's class is called.
    if (gtkApplicationId == "com.rastersoft.ding"_L1) {
        return DesktopProgram::ding;
    }
    const auto *const found = std::find_if(kRows.begin(), kRows.end(), [&](const Row &row) {
        return windowClass.compare(row.windowClass, Qt::CaseInsensitive) == 0;
    });
    return found == kRows.end() ? std::nullopt : std::optional(found->program);
}

} // namespace zeph
