// SPDX-License-Identifier: MIT
#include "adapters/kernel/UnixSignals.h"

#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>

namespace zeph {

namespace {

// A signal handler is given nothing but the number, so where to write it has to be found here.
std::atomic<int> writeEnd{-1};
static_assert(std::atomic<int>::is_always_lock_free, "used in a signal handler");

std::atomic<bool> hasOneCome{false};
static_assert(std::atomic<bool>::is_always_lock_free, "used in a signal handler");

void forward(int number) {
    hasOneCome = true;
    const int savedError = errno;
    const auto byte = static_cast<unsigned char>(number);
    // A full pipe holds signals enough; there is nobody to tell of the failure.
    [[maybe_unused]] const ssize_t written = ::write(writeEnd.load(), &byte, 1);
    errno = savedError;
}

} // namespace

struct UnixSignals::Saved {
    int number;
    struct sigaction action;
};

UnixSignals::UnixSignals(std::function<void(int)> handler) : m_handler(std::move(handler)) {
    take(SIGPIPE, SIG_IGN);
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    m_readEnd.reset(ends[0]);
    m_writeEnd.reset(ends[1]);
    writeEnd = ends[1];
    m_notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [this] { drain(); });
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        take(number, forward);
    }
}

UnixSignals::~UnixSignals() {
    for (const Saved &saved : m_saved) {
        ::sigaction(saved.number, &saved.action, nullptr);
    }
    writeEnd = -1;
}

bool UnixSignals::haveCome() {
    return hasOneCome;
}

void UnixSignals::take(int number, void (*action)(int)) {
    Saved saved{};
    saved.number = number;
    struct sigaction next {};
    next.sa_handler = action;
    next.sa_flags = SA_RESTART;
    ::sigemptyset(&next.sa_mask);
    if (::sigaction(number, nullptr, &saved.action) != 0 ||
        saved.action.sa_handler == SIG_IGN) { // NOLINT: the macro casts an integer to a function
        return;
    }
    if (::sigaction(number, &next, nullptr) == 0) {
        m_saved.push_back(saved);
    }
}

void UnixSignals::drain() {
    // The handler may end this object, so what is left to do is taken off it first.
    const std::function<void(int)> handler = m_handler;
    std::array<unsigned char, 64> bytes{};
    const ssize_t count = ::read(m_readEnd.get(), bytes.data(), bytes.size());
    for (ssize_t index = 0; index < count; ++index) {
        handler(bytes.at(static_cast<std::size_t>(index)));
    }
}

} // namespace zeph
