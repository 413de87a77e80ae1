// SPDX-License-Identifier: MIT
#include "adapters/session/loss/SocketWatch.h"

#include <poll.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace zeph {

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::uint32_t kEvents = IN_CREATE | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF;

// Room for some notices with names of common length.
constexpr std::size_t kRoom = 4096;

} // namespace

SocketWatch::SocketWatch(const DisplaySocket &socket)
    : m_name(socket.name), m_notices(inotify_init1(IN_CLOEXEC | IN_NONBLOCK)) {
    if (m_notices.isOpen() &&
        inotify_add_watch(m_notices.get(), socket.folder.constData(), kEvents | IN_ONLYDIR) < 0) {
        m_notices.reset();
    }
}

bool SocketWatch::wait(std::chrono::milliseconds patience) const {
    const auto deadline = SteadyClock::now() + patience;
    for (;;) {
        // Other files come into the folder, too.
        if (takeNews()) {
            return true;
        }
        const auto left =
            std::chrono::ceil<std::chrono::milliseconds>(deadline - SteadyClock::now());
        if (left.count() <= 0) {
            return false;
        }
        pollfd notices{m_notices.get(), POLLIN, 0}; // a negative one is left out
        poll(&notices, 1, static_cast<int>(left.count()));
    }
}

/// Whether any of the notices that came is about what is watched.
bool SocketWatch::takeNews() const {
    bool isNews = false;
    std::array<char, kRoom> bytes{};
    ssize_t count = 0;
    while (m_notices.isOpen() && (count = read(m_notices.get(), bytes.data(), bytes.size())) > 0) {
        const char *next = bytes.data();
        const char *const end = next + count;
        while (end - next >= static_cast<std::ptrdiff_t>(sizeof(inotify_event))) {
            inotify_event notice{};
            std::memcpy(&notice, next, sizeof notice);
            const char *const name = next + sizeof notice;
            isNews = isNews || notice.len == 0 || m_name == name; // without a name: the folder
            next = name + notice.len;
        }
    }
    return isNews;
}

} // namespace zeph
