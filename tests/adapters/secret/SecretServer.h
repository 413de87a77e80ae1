// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"
#include "support/Environment.h"

#include <QProcess>
#include <QTemporaryDir>

#include <memory>

namespace zeph {

/// A private session bus with a private home folder, for the real GNOME Keyring. The environment
/// of the process points to it until its end.
class SecretServer {
public:
    SecretServer();
    ~SecretServer();
    SecretServer(const SecretServer &) = delete;
    SecretServer &operator=(const SecretServer &) = delete;

    /// Starts the daemon with its collection unlocked; the first start makes the collection.
    void start();

    /// Starts the daemon with its collection locked.
    void startLocked();

    /// Ends the daemon by force and waits until its name is gone from the bus.
    void kill();

    bool isOnBus() const;

    QString address() const { return m_bus.address(); }
    QString home() const { return m_home.path(); }
    QDBusConnection &bus() { return m_connection.bus(); }

private:
    void launch(const QStringList &arguments, const QByteArray &password);

    QTemporaryDir m_home;
    PrivateBus m_bus;
    BusConnection m_connection{m_bus.address()};
    std::vector<std::unique_ptr<ScopedVariable>> m_variables;
    std::unique_ptr<QProcess> m_daemon;
};

} // namespace zeph
