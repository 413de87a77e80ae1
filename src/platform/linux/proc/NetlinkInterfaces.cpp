// SPDX-License-Identifier: MIT
#include "platform/linux/proc/NetlinkInterfaces.h"

#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>

#include <cerrno>

namespace zeph {

namespace {

// The largest part that the kernel makes of an answer.
constexpr std::size_t bufferSize = 32'768;

// A machine whose links change faster than they can be listed gets the last try.
constexpr int tries = 3;

struct LinkRequest {
    nlmsghdr header;
    ifinfomsg body;
};

} // namespace

NetlinkInterfaces::NetlinkInterfaces() : m_buffer(bufferSize) {}

std::optional<std::vector<LinkCounters>> NetlinkInterfaces::links() const {
    std::optional<LinkListing> listing;
    for (int attempt = 0; attempt < tries; ++attempt) {
        listing = list();
        if (!listing) {
            m_socket.reset();
            return std::nullopt;
        }
        if (!listing->interrupted) {
            break;
        }
    }
    return std::move(listing->links);
}

std::optional<LinkListing> NetlinkInterfaces::list() const {
    if (!ensureSocket() || !sendRequest()) {
        return std::nullopt;
    }
    LinkListing listing;
    LinkDump state = LinkDump::more;
    while (state == LinkDump::more) {
        state = receive(listing);
    }
    return state == LinkDump::done ? std::optional(std::move(listing)) : std::nullopt;
}

bool NetlinkInterfaces::ensureSocket() const {
    if (!m_socket.isOpen()) {
        m_socket.reset(
            ::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE));
    }
    return m_socket.isOpen();
}

bool NetlinkInterfaces::sendRequest() const {
    LinkRequest request{};
    request.header.nlmsg_len = sizeof(request);
    request.header.nlmsg_type = RTM_GETLINK;
    request.header.nlmsg_flags = NLM_F_REQUEST | NLM_F_DUMP;
    request.header.nlmsg_seq = ++m_sequence;
    request.body.ifi_family = AF_UNSPEC;
    ssize_t sent = 0;
    do {
        sent = ::send(m_socket.get(), &request, sizeof(request), 0);
    } while (sent < 0 && errno == EINTR);
    return sent == static_cast<ssize_t>(sizeof(request));
}

LinkDump NetlinkInterfaces::receive(LinkListing &listing) const {
    sockaddr_nl sender{};
    iovec part{m_buffer.data(), m_buffer.size()};
    msghdr message{};
    message.msg_name = &sender;
    message.msg_namelen = sizeof(sender);
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    ssize_t length = 0;
    do {
        length = ::recvmsg(m_socket.get(), &message, 0);
    } while (length < 0 && errno == EINTR);
    if (length <= 0 || (message.msg_flags & MSG_TRUNC) != 0) {
        return LinkDump::failed;
    }
    if (sender.nl_pid != 0) {
        return LinkDump::more; // another process' words are not the kernel's
    }
    return parseLinkMessages(QByteArrayView(m_buffer.data(), static_cast<qsizetype>(length)),
                             m_sequence, listing);
}

} // namespace zeph
