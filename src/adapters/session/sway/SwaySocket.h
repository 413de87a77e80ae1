// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// Where the sway with that process id listens for its own conversation, after `former`, where
/// another one of the same user did: the name holds both. `former` itself where it is of no such
/// form, as it is for one that was told where to listen.
QString swaySocketOf(const QString &former, qint64 process);

} // namespace zeph
