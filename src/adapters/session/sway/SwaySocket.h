// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// Where the sway with that process id listens for its own conversation, after `former`, where
/// another one of the same user did: the name holds both. `former` itself where it is of no such
/// form, as it is for one that was told where to listen.
QString swaySocketOf(const QString &former, qint64 process);

/// Connects to the sway that listens at `path`. A descriptor that the caller owns and that never
/// waits, or -1 with the reason in errno.
int connectToSway(const QString &path);

/// Whether the sway that listens at `path` is the process `compositor`; believed where one of the
/// two is not known. The variable that names the path outlives a sway, and is handed on to desktops
/// that have nothing to do with it.
bool isSwayOf(const QString &path, std::optional<qint64> compositor);

} // namespace zeph
