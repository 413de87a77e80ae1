// SPDX-License-Identifier: MIT
#include "platform/linux/qt/QtTaskExecutor.h"

#include <utility>

namespace zeph {

namespace {

// The refreshes of an hour come minutes apart; their stacks need not wait for the next one.
constexpr int idleMilliseconds = 5'000;

} // namespace

QtTaskExecutor::QtTaskExecutor(int threads) {
    m_pool.setMaxThreadCount(threads);
    m_pool.setExpiryTimeout(idleMilliseconds);
}

QtTaskExecutor::~QtTaskExecutor() {
    beginShutdown();
    m_pool.waitForDone();
}

void QtTaskExecutor::run(std::function<void()> task) {
    const QMutexLocker lock(&m_mutex);
    if (!m_isEnding) {
        m_pool.start(std::move(task));
    }
}

void QtTaskExecutor::beginShutdown() {
    const QMutexLocker lock(&m_mutex);
    m_isEnding = true;
    m_pool.clear();
}

bool QtTaskExecutor::finish(std::chrono::milliseconds patience) {
    beginShutdown();
    return m_pool.waitForDone(static_cast<int>(patience.count()));
}

} // namespace zeph
