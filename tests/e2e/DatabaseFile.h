// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// The first value that `sql` answers on the database at `path`, as text. Null when there is none
/// and when the database can't be opened; the file is never made.
QString databaseValue(const QString &path, const QString &sql);

} // namespace zeph
