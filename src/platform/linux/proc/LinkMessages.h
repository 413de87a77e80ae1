// SPDX-License-Identifier: MIT
#pragma once

#include "platform/NetworkInterfaces.h"

#include <QByteArrayView>
#include <QtGlobal>

#include <vector>

namespace zeph {

/// What a listing gathers over its datagrams.
struct LinkListing {
    std::vector<LinkCounters> links;
    bool interrupted = false; ///< the links changed meanwhile: ask again
};

/// How a datagram of a link listing ended.
enum class LinkDump {
    more,   ///< another datagram follows
    done,   ///< the listing is complete
    failed, ///< refused, or not understood
};

/// Reads one datagram of the kernel's answer to the link request `sequence`, and adds to `listing`
/// each link that has a name and 64-bit counters. Messages of other requests are passed over.
LinkDump parseLinkMessages(QByteArrayView datagram, quint32 sequence, LinkListing &listing);

} // namespace zeph
