// SPDX-License-Identifier: MIT
#include "adapters/session/common/WatchedInputEvents.h"

#include "ports/Consent.h"

#include <cmath>
#include <utility>

namespace zeph {

namespace {

constexpr double kMillisecondsInSecond = 1000;

} // namespace

WatchedInputEvents::WatchedInputEvents(std::unique_ptr<IdleWatcher> watcher, Consent &consent,
                                       ConsentUse use)
    : m_watcher(std::move(watcher)), m_consent(consent), m_use(use) {}

bool WatchedInputEvents::isQuietForMoreThan(double seconds) const {
    // A watch tells once its time is reached, and more than that is asked for.
    const std::chrono::milliseconds limit(std::llround(seconds * kMillisecondsInSecond) + 1);
    if (m_watcher && m_limit != limit) {
        m_limit = limit;
        m_watch = m_watcher->watch(limit);
    }
    return m_watch && m_watch->isQuiet();
}

bool WatchedInputEvents::isTrusted() const {
    return m_consent.isGranted();
}

Subscription WatchedInputEvents::subscribeToTrust(std::function<void()> handler) {
    return m_consent.subscribe(std::move(handler));
}

} // namespace zeph
