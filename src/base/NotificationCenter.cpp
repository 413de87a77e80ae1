// SPDX-License-Identifier: MIT
#include "base/NotificationCenter.h"

namespace zeph {

Subscription NotificationCenter::observe(const QString &name, std::function<void()> handler) {
    auto &publisher = m_publishers[name];
    if (!publisher) {
        publisher = std::make_shared<ChangePublisher>();
    }
    return publisher->subscribe(std::move(handler));
}

void NotificationCenter::post(const QString &name) {
    if (const auto publisher = m_publishers.value(name)) {
        publisher->send();
    }
}

} // namespace zeph
