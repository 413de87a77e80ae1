// SPDX-License-Identifier: MIT
#include "platform/linux/proc/LinkMessages.h"

#include <linux/if.h>
#include <linux/if_link.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <optional>
#include <type_traits>

namespace zeph {

namespace {

/// Copies a `T` off the front of `bytes`, whose alignment is anything; absent when too short.
template <typename T>
std::optional<T> front(QByteArrayView bytes) {
    static_assert(std::is_trivially_copyable_v<T>);
    if (bytes.size() < static_cast<qsizetype>(sizeof(T))) {
        return std::nullopt;
    }
    T value;
    std::memcpy(&value, bytes.data(), sizeof(T));
    return value;
}

constexpr qsizetype aligned(qsizetype length) {
    return (length + 3) & ~qsizetype{3};
}

QByteArrayView after(QByteArrayView bytes, qsizetype length) {
    return bytes.sliced(std::min(aligned(length), bytes.size()));
}

QString nameOf(QByteArrayView value) {
    const qsizetype end = value.indexOf('\0');
    return QString::fromUtf8(value.first(end < 0 ? value.size() : end));
}

/// The two byte counters of a statistics block.
bool readCounters(QByteArrayView block, LinkCounters &link) {
    constexpr qsizetype received = offsetof(rtnl_link_stats64, rx_bytes);
    constexpr qsizetype sent = offsetof(rtnl_link_stats64, tx_bytes);
    static_assert(sent > received);
    if (block.size() < sent + static_cast<qsizetype>(sizeof(quint64))) {
        return false;
    }
    link.bytesReceived = *front<quint64>(block.sliced(received));
    link.bytesSent = *front<quint64>(block.sliced(sent));
    return true;
}

/// Reads the attributes behind a link's header; absent when the name or the counters are missing.
std::optional<LinkCounters> readLink(QByteArrayView attributes) {
    LinkCounters link;
    bool counted = false;
    while (const auto header = front<rtattr>(attributes)) {
        const qsizetype length = header->rta_len;
        if (length < static_cast<qsizetype>(sizeof(rtattr)) || length > attributes.size()) {
            break;
        }
        const QByteArrayView value = attributes.first(length).sliced(sizeof(rtattr));
        if (header->rta_type == IFLA_IFNAME) {
            link.name = nameOf(value.first(std::min<qsizetype>(value.size(), IFNAMSIZ)));
        } else if (header->rta_type == IFLA_STATS64) {
            counted = readCounters(value, link);
        }
        attributes = after(attributes, length);
    }
    return counted && !link.name.isEmpty() ? std::optional(link) : std::nullopt;
}

} // namespace

LinkDump parseLinkMessages(QByteArrayView datagram, quint32 sequence, LinkListing &listing) {
    while (const auto header = front<nlmsghdr>(datagram)) {
        if (header->nlmsg_len < sizeof(nlmsghdr) ||
            header->nlmsg_len > static_cast<quint64>(datagram.size())) {
            return LinkDump::failed;
        }
        const qsizetype length = header->nlmsg_len;
        const QByteArrayView payload = datagram.first(length).sliced(sizeof(nlmsghdr));
        datagram = after(datagram, length);
        if (header->nlmsg_seq != sequence) {
            continue;
        }
        if ((header->nlmsg_flags & NLM_F_DUMP_INTR) != 0) {
            listing.interrupted = true;
        }
        if (header->nlmsg_type == NLMSG_DONE) {
            return LinkDump::done;
        }
        if (header->nlmsg_type == NLMSG_ERROR || header->nlmsg_type == NLMSG_OVERRUN) {
            return LinkDump::failed;
        }
        if (header->nlmsg_type == RTM_NEWLINK &&
            payload.size() >= static_cast<qsizetype>(sizeof(ifinfomsg))) {
            if (auto link = readLink(after(payload, sizeof(ifinfomsg)))) {
                listing.links.push_back(std::move(*link));
            }
        }
    }
    return LinkDump::more;
}

} // namespace zeph
