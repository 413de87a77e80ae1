// SPDX-License-Identifier: MIT
#pragma once

#include "base/Coordinate.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>
#include <memory>

class QDBusMessage;

namespace zeph {

class BusService;

/// Why a session with GeoClue came to nothing.
enum class GeoClueFailure {
    refused, ///< by the user, an administrator or the desktop's agent
    absent,  ///< there is no such service
    lost,    ///< the service ended, broke down or did not answer
};

/// What a session tells, on the thread that made it and never inside its constructor. The handler
/// must not end the session.
struct GeoClueHandlers {
    std::function<void()> started; ///< allowed; fixes follow when there are any
    std::function<void(Coordinate)> located;
    std::function<void(GeoClueFailure)> failed; ///< nothing follows
};

/// One conversation with the location service: makes a client of ours, asks to be told of the
/// city, and leaves. Starts the service when it is installed and not running.
class GeoClueSession {
public:
    /// `bus` is the system bus; one that isn't connected is a machine without the service.
    GeoClueSession(QDBusConnection bus, GeoClueHandlers handlers);
    ~GeoClueSession();
    GeoClueSession(const GeoClueSession &) = delete;
    GeoClueSession &operator=(const GeoClueSession &) = delete;

    /// Whether the service took us in, which it does once it knows the desktop's agent.
    bool hasClient() const { return !m_client.isEmpty(); }

    /// Leaves; no handler is called from now on.
    void close();

private:
    void askForClient();
    void haveClient(const QDBusMessage &answer);
    void ownerChanged();
    void setProperty(const QString &name, const QVariant &value) const;
    void start();
    void locationUpdated(const QDBusMessage &signal);
    void read(const QString &location);
    void fail(GeoClueFailure failure);

    QDBusConnection m_bus;
    GeoClueHandlers m_handlers;
    QString m_client; // our object there
    quint64 m_reading = 0;
    bool m_isClosed = false;
    std::unique_ptr<BusService> m_service; // once it took us in
    QObject m_context;                     // its end drops the calls under way
};

} // namespace zeph
