// SPDX-License-Identifier: MIT
#pragma once

#include "platform/NetworkInterfaces.h"
#include "platform/linux/proc/FileDescriptor.h"
#include "platform/linux/proc/LinkMessages.h"

#include <QtGlobal>

#include <vector>

namespace zeph {

/// Links after the kernel's route netlink. The socket stays open between calls and never blocks:
/// the kernel makes each part of its answer within the call that asks for it.
class NetlinkInterfaces : public NetworkInterfaces {
public:
    NetlinkInterfaces();

    std::optional<std::vector<LinkCounters>> links() const override;

private:
    bool ensureSocket() const;
    bool sendRequest() const;
    LinkDump receive(LinkListing &listing) const;
    std::optional<LinkListing> list() const;

    // A means of reading only, opened anew after a failure, so that no rest of an unfinished
    // answer stays in its queue.
    mutable FileDescriptor m_socket;
    mutable quint32 m_sequence = 0;
    mutable std::vector<char> m_buffer;
};

} // namespace zeph
