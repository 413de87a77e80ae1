// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QUuid>

#include <mutex>

namespace zeph {

class UserDefaults;

/// The marks of the accounts that were connected. A mark that follows a secret into the keyring
/// comes late and gives way to whatever was decided meanwhile. Callable from any thread.
class ConnectedMarks {
public:
    explicit ConnectedMarks(UserDefaults &defaults) : m_defaults(defaults) {}

    /// Sets or takes the mark; what was promised before no longer comes true.
    void set(const QUuid &id, bool isConnected);

    /// Announces a mark that `fulfil` sets later.
    quint64 promise(const QUuid &id);

    /// Sets the mark unless something was decided since the promise.
    void fulfil(const QUuid &id, quint64 promised);

private:
    UserDefaults &m_defaults;
    std::mutex m_lock; // held while a mark is written
    QHash<QUuid, quint64> m_decisions;
};

} // namespace zeph
