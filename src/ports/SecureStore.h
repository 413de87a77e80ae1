// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace zeph {

/// How an operation on secrets ended.
enum class SecretOutcome {
    done,
    refused,    ///< a person dismissed the prompt, or the store is locked; nothing has changed
    unavailable ///< there is no store, or it gave no answer; something may have changed
};

/// What was read. Only with `done` does an empty value mean that nothing is kept.
template <typename Value>
struct SecretAnswer {
    SecretOutcome outcome = SecretOutcome::unavailable;
    Value value = {};

    bool isDone() const { return outcome == SecretOutcome::done; }
    bool operator==(const SecretAnswer &) const = default;
};

/// One entry of the secure store; what can't be read of it is absent.
struct SecureItem {
    std::optional<QString> account;
    std::optional<QByteArray> data;
};

/// Secrets by service and account, kept by the system. Every operation may block, for as long as a
/// person takes to answer a prompt; callable from any thread.
class SecureStore : public Port {
public:
    /// Keeps `data` in place of what was kept under that service and account. What was kept stays
    /// until the new data is.
    virtual SecretOutcome add(const QString &service, const QString &account,
                              const QByteArray &data) = 0;

    virtual SecretAnswer<std::optional<QByteArray>> copy(const QString &service,
                                                         const QString &account) = 0;

    /// Every entry of `service`, unreadable ones included; refused as soon as one stays locked.
    virtual SecretAnswer<std::vector<SecureItem>> copyAll(const QString &service) = 0;

    /// Removes every entry of that service and account; nothing to remove is no failure.
    virtual SecretOutcome remove(const QString &service, const QString &account) = 0;

    /// A person wants what is kept: the next read may bring up a prompt that was dismissed before.
    /// Reads that nobody asked for leave a dismissed prompt alone.
    virtual void askAgain() = 0;
};

} // namespace zeph
