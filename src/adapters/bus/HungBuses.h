// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <chrono>
#include <vector>

namespace zeph {

/// Whether each of the buses at `addresses` hangs: it takes the connection and does not say a word
/// within `patience`, which is that of all of them together. One that can't be reached does not
/// hang. Addresses of other forms than a socket in the file system, or an abstract one, are not
/// looked at.
std::vector<bool> findHungBuses(const std::vector<QByteArray> &addresses,
                                std::chrono::milliseconds patience);

/// Has the process do without a session or system bus that hangs. The bus libraries wait for the
/// bus when they connect, half a minute each time, and so do toolkits at their start. To be called
/// before anything connects and before there are threads.
void avoidHungBuses(std::chrono::milliseconds patience);

} // namespace zeph
