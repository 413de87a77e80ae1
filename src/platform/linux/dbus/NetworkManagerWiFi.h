// SPDX-License-Identifier: MIT
#pragma once

#include "platform/WiFi.h"

#include <QDBusConnection>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <vector>

class QDBusServiceWatcher;

namespace zeph {

class PropertyWatch;

/// The joined wireless network after NetworkManager, by subscription: nothing is asked while
/// nothing changes. Without the daemon, or a wireless connection, there is no name.
class NetworkManagerWiFi : public WiFi {
public:
    /// `bus` is the system bus. One that isn't connected is a machine without the daemon.
    explicit NetworkManagerWiFi(QDBusConnection bus);
    ~NetworkManagerWiFi() override;

    std::optional<QString> ssid() const override { return m_ssid; }

private:
    /// What an active connection turned out to be.
    struct Candidate {
        bool isAnswered = false;
        QString accessPoint; // empty unless it is a wireless one that stands
    };

    void refresh();
    void forget();
    void ask(const QString &path, const QString &interface,
             std::function<void(const std::optional<QVariantMap> &)> done);
    void readConnections(const QVariantMap &manager);
    void chooseConnection();
    void readAccessPoint(const QString &path);
    void finishWithout();
    void finish(const std::optional<QString> &ssid);

    QDBusConnection m_bus;
    QObject m_context; // its end drops the calls under way
    std::optional<QString> m_ssid;
    quint64 m_inquiry = 0; // answers to an earlier one are dropped
    bool m_isInquiring = false;
    bool m_isStale = false; // something changed while an inquiry was under way
    std::vector<Candidate> m_candidates;
    std::unique_ptr<QDBusServiceWatcher> m_serviceWatch;
    std::unique_ptr<PropertyWatch> m_managerWatch;
    std::unique_ptr<PropertyWatch> m_connectionWatch;
    std::unique_ptr<PropertyWatch> m_accessPointWatch; // only while the name is hidden
};

} // namespace zeph
