// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <optional>

namespace zeph {

/// The tool by which a desktop's setting of its icons is read and written.
struct IconTool {
    QString desktopProgram; ///< that draws the icons
    QString program;
    QStringList read;
    QString hiddenAnswer; ///< what `read` prints while they are hidden
    QStringList hide;
    QStringList show;
};

/// `currentDesktop` is XDG_CURRENT_DESKTOP: names apart by colons, of which the first that is known
/// decides. Absent for desktops without such a setting, and for those that have icons by an
/// extension.
std::optional<IconTool> iconToolFor(const QString &currentDesktop);

} // namespace zeph
