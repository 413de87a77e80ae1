// SPDX-License-Identifier: MIT
#include "base/ChangePublisher.h"

#include <map>
#include <vector>

namespace zeph {

struct ChangePublisher::Handlers {
    std::map<int, std::function<void()>> byId;
    int nextId = 0;
};

ChangePublisher::ChangePublisher() : m_handlers(std::make_shared<Handlers>()) {}

ChangePublisher::~ChangePublisher() = default;

Subscription ChangePublisher::subscribe(std::function<void()> handler) const {
    const int id = m_handlers->nextId++;
    m_handlers->byId.emplace(id, std::move(handler));
    // The token carries no object: its deleter is what ends the subscription.
    std::shared_ptr<void> token(nullptr, [id, weak = std::weak_ptr(m_handlers)](void *) {
        if (const auto handlers = weak.lock()) {
            handlers->byId.erase(id);
        }
    });
    return Subscription(std::move(token));
}

void ChangePublisher::send() {
    // A handler may subscribe, unsubscribe or destroy this publisher, so the walk is over ids.
    const auto handlers = m_handlers;
    std::vector<int> ids;
    ids.reserve(handlers->byId.size());
    for (const auto &[id, handler] : handlers->byId) {
        ids.push_back(id);
    }
    for (const int id : ids) {
        const auto found = handlers->byId.find(id);
        if (found != handlers->byId.end()) {
            const auto handler = found->second;
            handler();
        }
    }
}

} // namespace zeph
