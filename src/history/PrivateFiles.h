// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// Makes the SQLite file `path` when missing, and closes it and its side files to everybody but
/// the user (0600). What a file holds is never touched. A failure is left to SQLite's open.
void makePrivateDatabaseFile(const QString &path);

/// Renames the SQLite file `path`, which nobody has open, and its side files to a name that says
/// that it is damaged. The new name; absent when the file can't be renamed.
std::optional<QString> setDatabaseAside(const QString &path);

} // namespace zeph
