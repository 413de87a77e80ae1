// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// Makes `folder` for the user alone (0700) when missing, its parents included. A folder that is
/// there keeps its mode. A failure is left to whoever uses the folder next.
void makePrivateFolder(const QString &folder);

/// Makes the SQLite file `path` when missing, and closes it and its side files to everybody but
/// the user (0600). What a file holds is never touched. A failure is left to SQLite's open.
void makePrivateDatabaseFile(const QString &path);

} // namespace zeph
