// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/desktop/ProgramIcons.h"
#include "ports/DesktopShell.h"

#include <QDBusConnection>
#include <QStringList>

#include <memory>

namespace zeph {

/// The shell of the desktop in XDG_CURRENT_DESKTOP: names apart by colons, of which the first that
/// is known decides. `dataFolders` are those of XDG_DATA_HOME and XDG_DATA_DIRS, `bus` is the
/// session bus. By `notices` a desktop whose program may come later tells of that.
std::unique_ptr<DesktopShell> makeDesktopShell(const QString &currentDesktop,
                                               const QStringList &dataFolders,
                                               const QDBusConnection &bus,
                                               const ProgramIcons::Notices &notices = {});

} // namespace zeph
