// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>

namespace zeph {

/// Keeps a subscription alive; its end ends the subscription. It may outlive the publisher.
class Subscription {
public:
    Subscription() = default;
    explicit Subscription(std::shared_ptr<void> token) : m_token(std::move(token)) {}

private:
    std::shared_ptr<void> m_token;
};

/// Tells subscribers that something is about to change. Main thread only.
class ChangePublisher {
public:
    ChangePublisher();
    ~ChangePublisher();
    ChangePublisher(const ChangePublisher &) = delete;
    ChangePublisher &operator=(const ChangePublisher &) = delete;

    /// Calls `handler` on every `send` until the returned subscription ends. To listen changes
    /// nothing: who may only look at an object may be told of its changes.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) const;

    void send();

private:
    struct Handlers;
    std::shared_ptr<Handlers> m_handlers; // shared with the subscriptions, which may end later
};

} // namespace zeph
