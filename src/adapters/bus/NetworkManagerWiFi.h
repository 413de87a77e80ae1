// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/ObjectMirror.h"
#include "ports/WiFi.h"

namespace zeph {

/// The joined wireless network after NetworkManager, by subscription: nothing is asked while
/// nothing changes. Without the daemon, or a wireless connection, there is no name.
class NetworkManagerWiFi : public WiFi {
public:
    /// `bus` is the system bus. One that isn't connected is a machine without the daemon.
    explicit NetworkManagerWiFi(const QDBusConnection &bus);

    std::optional<QString> ssid() const override { return m_ssid; }

private:
    void update();
    void readConnections(const QStringList &paths);
    std::optional<QString> joinedAccessPoint() const;
    void join(const QString &accessPoint);
    void followHiddenName();

    std::optional<QString> m_ssid;
    QStringList m_connections; // active ones, by their paths
    QString m_accessPoint;     // the joined one; may be empty
    ObjectMirror m_mirror;
    std::unique_ptr<SignalWatch> m_accessPointWatch; // only while the name is hidden
    Subscription m_changes;
};

} // namespace zeph
