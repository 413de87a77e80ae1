// SPDX-License-Identifier: MIT
#include "adapters/places/GeoClueLocationClient.h"

#include "adapters/places/GeoClueSession.h"
#include "adapters/places/LocationPermission.h"

#include <utility>

namespace zeph {

GeoClueLocationClient::GeoClueLocationClient(QDBusConnection bus, LocationPermission &permission,
                                             ZoneCity zoneCity, LocationPatience patience)
    : m_bus(std::move(bus)),
      m_permission(permission),
      m_zoneCity(std::move(zoneCity)),
      m_patience(patience),
      m_told(permission.status()),
      m_consent(permission.subscribe([this] { consentChanged(); })) {
    m_deadline.setSingleShot(true);
    QObject::connect(&m_deadline, &QTimer::timeout, &m_context, [this] { patienceEnded(); });
}

GeoClueLocationClient::~GeoClueLocationClient() = default;

Subscription GeoClueLocationClient::subscribe(LocationClientDelegate &delegate) {
    return m_events.subscribe([this, &delegate] { (*m_telling)(delegate); });
}

LocationAuthorization GeoClueLocationClient::authorizationStatus() const {
    return m_permission.status();
}

LocationHindrance GeoClueLocationClient::hindrance() const {
    return m_permission.hindrance();
}

void GeoClueLocationClient::requestLocation() {
    if (m_wantsFix) {
        return;
    }
    if (authorizationStatus() != LocationAuthorization::authorized) {
        QMetaObject::invokeMethod(
            &m_context, [this] { tellFailure(); }, Qt::QueuedConnection);
        return;
    }
    m_wantsFix = true;
    m_isOverdue = false;
    m_mayTryAgain = true;
    m_deadline.start(m_patience.fix);
    if (!m_session) {
        open();
    }
}

void GeoClueLocationClient::requestWhenInUseAuthorization() {
    const bool isBusy = m_wantsPermission || m_wantsFix;
    if (isBusy || authorizationStatus() != LocationAuthorization::notDetermined) {
        return;
    }
    m_wantsPermission = true;
    m_isUserAsked = false;
    m_deadline.start(m_patience.agent);
    open();
}

void GeoClueLocationClient::open() {
    close();
    m_session = std::make_unique<GeoClueSession>(
        m_bus, GeoClueHandlers{[this] { started(); }, [this](Coordinate fix) { located(fix); },
                               [this](GeoClueFailure failure) { failed(failure); }});
}

/// Leaves the service; the session itself, which may be the caller, ends a little later.
void GeoClueLocationClient::close() {
    if (m_session) {
        m_session->close();
        QMetaObject::invokeMethod(
            &m_context,
            [ended = std::shared_ptr<GeoClueSession>(std::move(m_session))]() mutable {
                ended.reset();
            },
            Qt::QueuedConnection);
    }
    m_isStarted = false;
    m_fix.reset();
}

void GeoClueLocationClient::started() {
    m_isStarted = true;
    m_permission.setHindrance(LocationHindrance::none);
    if (m_wantsPermission) {
        granted(); // whoever hears it may want a fix
    }
    if (!m_wantsFix && !m_isOverdue) {
        close();
    } else if (m_fix) {
        answer(m_fix);
    }
}

void GeoClueLocationClient::located(Coordinate fix) {
    m_hadFix = true;
    if (m_isStarted && (m_wantsFix || m_isOverdue)) {
        answer(fix);
    } else {
        m_fix = fix;
    }
}

void GeoClueLocationClient::failed(GeoClueFailure failure) {
    close();
    switch (failure) {
    case GeoClueFailure::refused:
        refused();
        break;
    case GeoClueFailure::absent:
        m_permission.setHindrance(LocationHindrance::noService);
        if (m_wantsPermission) {
            granted();
        } else {
            answerWithoutService();
        }
        break;
    case GeoClueFailure::lost:
        lost();
        break;
    }
}

void GeoClueLocationClient::refused() {
    m_wantsPermission = false;
    m_isOverdue = false;
    m_deadline.stop();
    m_permission.refuse();
    tellAuthorization();
    if (m_wantsFix) {
        answer(std::nullopt);
    }
}

void GeoClueLocationClient::lost() {
    if (m_wantsPermission) {
        m_wantsPermission = false; // still undetermined, and may be asked again
        m_deadline.stop();
    } else if (std::exchange(m_mayTryAgain, false)) {
        open();
    } else {
        answerWithoutService();
    }
}

void GeoClueLocationClient::granted() {
    m_wantsPermission = false;
    m_deadline.stop();
    m_permission.grant();
    tellAuthorization();
}

/// Ends the request and leaves the service.
void GeoClueLocationClient::answer(std::optional<Coordinate> fix) {
    m_isOverdue = false;
    close();
    tellAnswer(fix);
}

/// Ends the request; absent is a failure.
void GeoClueLocationClient::tellAnswer(std::optional<Coordinate> fix) {
    m_wantsFix = false;
    m_deadline.stop();
    if (fix) {
        tell([&](LocationClientDelegate &delegate) { delegate.locationsUpdated({*fix}); });
    } else {
        tellFailure();
    }
}

/// Nothing but a true fix follows a stand-in.
void GeoClueLocationClient::answerWithoutService() {
    if (m_wantsFix) {
        tellAnswer(m_hadFix ? std::nullopt : m_zoneCity());
    }
}

void GeoClueLocationClient::patienceEnded() {
    if (m_wantsPermission) {
        permissionPatienceEnded();
    } else {
        noteMissingAgent();
        m_isOverdue = true;
        answerWithoutService();
    }
}

/// The service takes nobody in before it knows the agent.
void GeoClueLocationClient::noteMissingAgent() {
    if (m_session && !m_session->hasClient()) {
        m_permission.setHindrance(LocationHindrance::noAgent);
    }
}

void GeoClueLocationClient::permissionPatienceEnded() {
    if (!m_session->hasClient()) {
        noteMissingAgent();
        close();
        granted();
    } else if (!std::exchange(m_isUserAsked, true)) {
        m_deadline.start(m_patience.authorization);
    } else {
        close();
        m_wantsPermission = false; // still undetermined, and may be asked again
    }
}

void GeoClueLocationClient::consentChanged() {
    if (authorizationStatus() != LocationAuthorization::authorized) {
        m_wantsPermission = false;
        m_wantsFix = false;
        m_isOverdue = false;
        m_hadFix = false; // forgotten, so that a stand-in is better than none again
        m_deadline.stop();
        close();
    }
    tellAuthorization();
}

void GeoClueLocationClient::tellAuthorization() {
    const LocationAuthorization status = authorizationStatus();
    if (std::exchange(m_told, status) != status) {
        tell([&](LocationClientDelegate &delegate) { delegate.authorizationChanged(status); });
    }
}

void GeoClueLocationClient::tellFailure() {
    tell([](LocationClientDelegate &delegate) { delegate.locationFailed(); });
}

void GeoClueLocationClient::tell(const std::function<void(LocationClientDelegate &)> &what) {
    const auto *const outer = std::exchange(m_telling, &what);
    m_events.send();
    m_telling = outer;
}

} // namespace zeph
