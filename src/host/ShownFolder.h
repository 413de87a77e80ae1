// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace zeph {

/// `path` (bytes of the file system) as people write it: "~/Desktop" for a folder below `home`.
QString shownFolder(const QByteArray &path, const QByteArray &home);

} // namespace zeph
