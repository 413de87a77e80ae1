// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace zeph {

/// The Desktop folder after the text of a user-dirs.dirs file, without a slash at its end; the
/// folder "Desktop" of the home when the text names none. Absent for a user without one, which is
/// written as the home itself, and when there is no home to start from. The last line that can be
/// understood counts.
std::optional<QByteArray> desktopFolderIn(const QByteArray &userDirs, const QByteArray &home);

/// The same after the file user-dirs.dirs of `configFolder`; a file that is missing, unreadable or
/// no ordinary file reads as empty.
std::optional<QByteArray> findDesktopFolder(const QByteArray &configFolder, const QByteArray &home);

} // namespace zeph
