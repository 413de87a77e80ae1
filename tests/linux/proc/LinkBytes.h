// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <linux/if_link.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>

#include <cstring>

namespace zeph {

/// The bytes of any plain value.
template <typename T>
QByteArray bytesOf(const T &value) {
    QByteArray bytes(static_cast<qsizetype>(sizeof(T)), '\0');
    std::memcpy(bytes.data(), &value, sizeof(T));
    return bytes;
}

inline QByteArray padded(QByteArray bytes) {
    return bytes.append(QByteArray((4 - bytes.size() % 4) % 4, '\0'));
}

/// One netlink message.
inline QByteArray netlinkMessage(int type, quint32 sequence, const QByteArray &payload,
                                 int flags = NLM_F_MULTI) {
    nlmsghdr header{};
    header.nlmsg_len = static_cast<quint32>(sizeof(header)) + static_cast<quint32>(payload.size());
    header.nlmsg_type = static_cast<quint16>(type);
    header.nlmsg_flags = static_cast<quint16>(flags);
    header.nlmsg_seq = sequence;
    return padded(bytesOf(header) + payload);
}

inline QByteArray attribute(int type, const QByteArray &value) {
    rtattr header{};
    header.rta_len = static_cast<quint16>(sizeof(header) + static_cast<std::size_t>(value.size()));
    header.rta_type = static_cast<quint16>(type);
    return padded(bytesOf(header) + value);
}

inline QByteArray counters(quint64 sent, quint64 received) {
    rtnl_link_stats64 block{};
    block.tx_bytes = sent;
    block.rx_bytes = received;
    return bytesOf(block);
}

/// A link as the kernel tells it.
inline QByteArray linkMessage(quint32 sequence, const QByteArray &name, quint64 sent,
                              quint64 received, int flags = NLM_F_MULTI) {
    return netlinkMessage(RTM_NEWLINK, sequence,
                          bytesOf(ifinfomsg{}) + attribute(IFLA_IFNAME, name + '\0') +
                              attribute(IFLA_MTU, bytesOf(quint32{1500})) +
                              attribute(IFLA_STATS64, counters(sent, received)),
                          flags);
}

inline QByteArray doneMessage(quint32 sequence) {
    return netlinkMessage(NLMSG_DONE, sequence, bytesOf(qint32{0}));
}

} // namespace zeph
