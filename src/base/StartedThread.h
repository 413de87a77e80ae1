// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace zeph {

/// A thread that runs `work`, absent when the system has no more threads. The holder joins it.
template <typename Thread = std::thread, typename Work>
std::optional<Thread> startedThread(Work &&work) {
    try {
        return Thread(std::forward<Work>(work));
    } catch (const std::system_error &) {
        return std::nullopt;
    }
}

} // namespace zeph
