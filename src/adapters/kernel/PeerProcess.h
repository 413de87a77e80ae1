// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <optional>

namespace zeph {

/// The process that listened for the other end of a connected local socket. Absent where the
/// kernel does not tell, as of a process outside of this container.
std::optional<qint64> peerProcess(int socket);

} // namespace zeph
