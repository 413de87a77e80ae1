// SPDX-License-Identifier: MIT
#include "host/PermissionsManager.h"

#include "host/CalendarPermission.h"
#include "ports/EventStore.h"
#include "ports/InputEvents.h"
#include "ports/LocationClient.h"
#include "ports/RunLoop.h"
#include "ports/SystemSettings.h"
#include "settings/Consents.h"

#include <QUrl>

#include <chrono>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr std::chrono::milliseconds refreshDelay{600};
// A prompt that has not changed the state by then did not show.
constexpr std::chrono::milliseconds promptDelay{1500};

/// A machine without a location source counts as one that refuses it.
LocationAuthorization statusOf(const LocationClient *client) {
    return client == nullptr ? LocationAuthorization::denied : client->authorizationStatus();
}

void askForLocation(LocationClient &client) {
    client.requestWhenInUseAuthorization();
    if (client.authorizationStatus() == LocationAuthorization::authorized) {
        client.requestLocation();
    }
}

} // namespace

std::shared_ptr<PermissionsManager> PermissionsManager::make(PermissionsContext context) {
    // make_shared can't reach the private constructor.
    return std::shared_ptr<PermissionsManager>(new PermissionsManager(std::move(context)));
}

PermissionsManager::PermissionsManager(PermissionsContext context) : m_context(std::move(context)) {
    refresh();
}

QString PermissionsManager::accessibilityLink() {
    return u"zeph-settings:accessibility"_s;
}

QString PermissionsManager::locationLink() {
    return u"zeph-settings:location"_s;
}

QString PermissionsManager::calendarLink() {
    return u"zeph-settings:calendar"_s;
}

QString PermissionsManager::remindersLink() {
    return u"zeph-settings:reminders"_s;
}

QString PermissionsManager::privacyLink() {
    return u"zeph-settings:privacy"_s;
}

void PermissionsManager::refresh() {
    EventStore &store = m_context.calendarPermission.store();
    accessibilityGranted = m_context.inputEvents.isTrusted();
    // A client in use may lag behind the system; a fresh one has just read the state.
    const auto freshClient = m_context.makeLocationClient();
    locationGranted = statusOf(freshClient.get()) == LocationAuthorization::authorized;
    calendarGranted = store.authorizationStatus(EntityType::event) == EventAccess::fullAccess;
    remindersGranted = store.authorizationStatus(EntityType::reminder) == EventAccess::fullAccess;
}

bool PermissionsManager::canCountKeys() const {
    return m_context.inputEvents.canCountKeys();
}

bool PermissionsManager::inputConsentTellsFront() const {
    return m_context.inputEvents.consentTellsFront();
}

LocationHindrance PermissionsManager::locationHindrance() const {
    return m_context.locationClient == nullptr ? LocationHindrance::noService
                                               : m_context.locationClient->hindrance();
}

void PermissionsManager::requestAccessibility() {
    m_context.consents.input.set(ConsentState::granted);
    accessibilityGranted = m_context.inputEvents.isTrusted();
}

void PermissionsManager::requestLocation() {
    LocationClient *const client = m_context.locationClient;
    switch (statusOf(client)) {
    case LocationAuthorization::restricted:
    case LocationAuthorization::denied:
        openOrShowOurs(locationLink());
        break;
    case LocationAuthorization::notDetermined:
        m_context.activateApplication();
        askForLocation(*client);
        m_context.runLoop.after(promptDelay, [self = shared_from_this()] {
            self->refresh();
            if (statusOf(self->m_context.locationClient) == LocationAuthorization::notDetermined) {
                self->open(locationLink());
            }
        });
        break;
    case LocationAuthorization::authorized:
        askForLocation(*client);
        break;
    }
    m_context.runLoop.after(refreshDelay, [self = shared_from_this()] { self->refresh(); });
}

void PermissionsManager::requestCalendar() {
    requestEntity(EntityType::event, calendarLink());
}

void PermissionsManager::requestReminders() {
    requestEntity(EntityType::reminder, remindersLink());
}

void PermissionsManager::requestEntity(EntityType type, const QString &link) {
    const EventAccess status = m_context.calendarPermission.store().authorizationStatus(type);
    if (status == EventAccess::restricted || status == EventAccess::denied) {
        openOrShowOurs(link);
        return;
    }
    if (status != EventAccess::notDetermined) {
        refresh();
        return;
    }
    m_context.activateApplication();
    const auto answered = [weak = weak_from_this()](bool) {
        if (const auto self = weak.lock()) {
            self->refresh();
        }
    };
    if (type == EntityType::event) {
        m_context.calendarPermission.requestAccess(answered);
    } else {
        m_context.calendarPermission.requestRemindersAccess(answered);
    }
    m_context.runLoop.after(promptDelay, [self = shared_from_this(), type, link] {
        self->refresh();
        if (self->m_context.calendarPermission.store().authorizationStatus(type) ==
            EventAccess::notDetermined) {
            self->open(link);
        }
    });
}

// Not "denied": that would send the next press on "Allow" to the system's settings, which know
// nothing of an answer that is kept here.
void PermissionsManager::withdraw(Consent &consent) {
    consent.set(ConsentState::notDetermined);
    refresh();
}

void PermissionsManager::withdrawAccessibility() {
    withdraw(m_context.consents.input);
}

void PermissionsManager::withdrawLocation() {
    withdraw(m_context.consents.location);
}

void PermissionsManager::withdrawCalendar() {
    withdraw(m_context.consents.calendar);
}

void PermissionsManager::withdrawReminders() {
    withdraw(m_context.consents.reminders);
}

bool PermissionsManager::open(const QString &link) {
    const QUrl url(link, QUrl::StrictMode);
    const bool canOpen = url.isValid() && m_context.systemSettings.canOpen(url);
    if (canOpen) {
        m_context.systemSettings.open(url);
    }
    return canOpen;
}

void PermissionsManager::openOrShowOurs(const QString &link) {
    if (!open(link) && m_context.showPermissions) {
        m_context.showPermissions();
    }
}

} // namespace zeph
