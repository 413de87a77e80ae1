// SPDX-License-Identifier: MIT
#include "adapters/session/loss/DisplayWait.h"

#include "adapters/session/loss/SocketWatch.h"

#include <unistd.h>

#include <algorithm>

namespace zeph {

namespace {

using SteadyClock = std::chrono::steady_clock;
using std::chrono::milliseconds;

// A server that makes its socket listens to it within this time, and most do at once.
constexpr milliseconds kSlowestListening{2000};
constexpr milliseconds kBetweenLooks{100};

bool isThere(const QByteArray &folder) {
    return access(folder.constData(), F_OK) == 0;
}

} // namespace

milliseconds restBeforeNextLook(milliseconds sinceNews, milliseconds left) {
    return sinceNews < kSlowestListening ? std::min(kBetweenLooks, left) : left;
}

bool waitForDisplay(const DisplaySocket &socket, const DisplayLook &look, milliseconds patience) {
    const auto deadline = SteadyClock::now() + patience;
    const SocketWatch watch(socket); // before the first look, so that nothing comes in between
    auto news = SteadyClock::now();
    while (isThere(socket.folder)) {
        const auto now = SteadyClock::now();
        const auto left = std::chrono::ceil<milliseconds>(deadline - now);
        if (look(std::max(left, milliseconds(0)))) {
            return true;
        }
        if (left.count() <= 0) {
            return false;
        }
        const auto sinceNews = std::chrono::duration_cast<milliseconds>(now - news);
        if (watch.wait(restBeforeNextLook(sinceNews, left))) {
            news = SteadyClock::now();
        }
    }
    return false;
}

} // namespace zeph
