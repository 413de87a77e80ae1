// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/kernel/FileDescriptor.h"
#include "adapters/session/loss/DisplaySocket.h"

#include <chrono>

namespace zeph {

/// Tells when a socket is made, or the folder that it is made in goes away. Costs nothing while
/// neither happens.
class SocketWatch {
public:
    explicit SocketWatch(const DisplaySocket &socket);

    /// Waits for that, at most for so long; true when it happened since the last time. Where the
    /// system can't watch, it only waits.
    bool wait(std::chrono::milliseconds patience) const;

private:
    bool takeNews() const;

    QByteArray m_name;
    FileDescriptor m_notices;
};

} // namespace zeph
