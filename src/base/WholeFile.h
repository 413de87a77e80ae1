// SPDX-License-Identifier: MIT
#pragma once

#include <QFileDevice>
#include <QString>

#include <optional>

namespace zeph {

/// Puts `bytes` in the place of the file at `path`, whose folder is there. When that fails, as on a
/// full disk, the file is what it was before. A file that is new, or was replaced, has the mode
/// `permissions`; without them the one of the file before, else what the user's umask wants.
/// Answers the system's reason when it fails.
std::optional<QString>
writeWhole(const QString &path, const QByteArray &bytes,
           std::optional<QFileDevice::Permissions> permissions = std::nullopt);

} // namespace zeph
