// SPDX-License-Identifier: MIT
#pragma once

#include "ports/LocationClient.h"

#include <QDBusConnection>
#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace zeph {

class GeoClueSession;
class LocationPermission;
enum class GeoClueFailure;

/// How long to wait for the location service.
struct LocationPatience {
    std::chrono::milliseconds fix{30'000};
    /// For the user's answer to the desktop's question.
    std::chrono::milliseconds authorization{180'000};
    /// For the service to find the desktop's agent, which does the asking. Without one the service
    /// waits for ever; it and the agent may just be starting.
    std::chrono::milliseconds agent{5'000};
};

/// The position after GeoClue, at the accuracy of a city. Where the service is allowed and yet
/// tells nothing in time, or there is none on this machine, the zone's principal city stands in
/// until it does, unless the service told a position earlier: that one stays.
/// The service is not touched before the user allowed it, and is left when that is taken back.
/// Main thread only.
class GeoClueLocationClient : public LocationClient {
public:
    using ZoneCity = std::function<std::optional<Coordinate>()>;

    /// `bus` is the system bus. `permission` is the one of all clients and outlives them.
    GeoClueLocationClient(QDBusConnection bus, LocationPermission &permission, ZoneCity zoneCity,
                          LocationPatience patience = {});
    ~GeoClueLocationClient() override;

    Subscription subscribe(LocationClientDelegate &delegate) override;
    LocationAuthorization authorizationStatus() const override;
    LocationHindrance hindrance() const override;

    /// One answer to all requests that are made before it: a fix, or a failure without permission
    /// and where not even the time zone has a city. Where the service told nothing in time it is
    /// kept listening to, and its first fix is told as well.
    void requestLocation() override;

    /// Asks the service, and with it the user, unless that is settled. Without a service, or on a
    /// desktop without an agent, nobody is there to ask, and the user's wish counts.
    void requestWhenInUseAuthorization() override;

private:
    void open();
    void close();
    void started();
    void located(Coordinate fix);
    void failed(GeoClueFailure failure);
    void refused();
    void lost();
    void granted();
    void answer(std::optional<Coordinate> fix);
    void tellAnswer(std::optional<Coordinate> fix);
    void answerWithoutService();
    void patienceEnded();
    void permissionPatienceEnded();
    void noteMissingAgent();
    void consentChanged();
    void tellAuthorization();
    void tellFailure();
    void tell(const std::function<void(LocationClientDelegate &)> &what);

    QDBusConnection m_bus;
    LocationPermission &m_permission;
    ZoneCity m_zoneCity;
    LocationPatience m_patience;
    LocationAuthorization m_told; // the status that the delegates know of
    ChangePublisher m_events;
    const std::function<void(LocationClientDelegate &)> *m_telling = nullptr; // while it lasts
    std::unique_ptr<GeoClueSession> m_session;
    bool m_isStarted = false;        // the session
    bool m_wantsPermission = false;  // a question to the user is open
    bool m_isUserAsked = false;      // as far as is known: the service found the agent
    bool m_wantsFix = false;         // a request is open
    bool m_isOverdue = false;        // it was answered without the service, which may still tell
    bool m_hadFix = false;           // of the service, since the start
    bool m_mayTryAgain = false;      // after the service was lost
    std::optional<Coordinate> m_fix; // came before anybody asked for it
    QTimer m_deadline;
    QObject m_context; // takes what is still waiting with it
    Subscription m_consent;
};

} // namespace zeph
