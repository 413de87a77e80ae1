// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Port.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace zeph {

/// One entry of the secure store; what can't be read of it is absent.
struct SecureItem {
    std::optional<QString> account;
    std::optional<QByteArray> data;
};

/// Secrets by service and account, kept by the system. Every operation may block, for as long as a
/// person takes to answer a prompt; callable from any thread. A store that is absent, locked or
/// refused holds nothing and keeps nothing.
class SecureStore : public Port {
public:
    /// Keeps `data`; a refusal is silent.
    virtual void add(const QString &service, const QString &account, const QByteArray &data) = 0;

    virtual std::optional<QByteArray> copy(const QString &service, const QString &account) = 0;

    /// Every entry of `service`, unreadable ones included.
    virtual std::vector<SecureItem> copyAll(const QString &service) = 0;

    /// Removes every entry of that service and account; nothing to remove is no failure.
    virtual void remove(const QString &service, const QString &account) = 0;
};

} // namespace zeph
