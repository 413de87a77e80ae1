// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/kernel/FileDescriptor.h"

#include <functional>
#include <memory>
#include <vector>

class QSocketNotifier;

namespace zeph {

/// Hands SIGTERM, SIGINT and SIGHUP to the main thread's event loop, and has SIGPIPE ignored. One
/// instance at a time; its end puts the former dispositions back.
class UnixSignals {
public:
    /// `handler` gets the signal's number on the thread that made this object. A signal that the
    /// process was started to ignore, as under nohup, stays ignored.
    explicit UnixSignals(std::function<void(int)> handler);
    ~UnixSignals();
    UnixSignals(const UnixSignals &) = delete;
    UnixSignals &operator=(const UnixSignals &) = delete;

    /// False when the system refused the pipe; the signals then end the process as ever.
    bool isActive() const { return m_notifier != nullptr; }

    /// Whether one of the three has come since the process began, also one that the loop did not
    /// come to any more.
    static bool haveCome();

private:
    struct Saved;
    void take(int number, void (*action)(int));
    void drain();

    std::function<void(int)> m_handler;
    FileDescriptor m_readEnd;
    FileDescriptor m_writeEnd;
    std::unique_ptr<QSocketNotifier> m_notifier;
    std::vector<Saved> m_saved;
};

} // namespace zeph
