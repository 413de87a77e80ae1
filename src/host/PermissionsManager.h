// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/Published.h"

#include <QString>

#include <functional>
#include <memory>

namespace zeph {

class CalendarPermission;
class Consent;
struct Consents;
class InputEvents;
class LocationClient;
class RunLoop;
class SystemSettings;
enum class EntityType;
enum class LocationHindrance;

/// What the permissions are asked of; everything outlives the manager and the run loop's tasks.
struct PermissionsContext {
    const InputEvents &inputEvents;
    /// The one that `LocationManager` listens to; null on a machine without a location source.
    LocationClient *locationClient;
    /// Makes a client for a fresh look at the state; may answer null like the above.
    std::function<std::unique_ptr<LocationClient>()> makeLocationClient;
    CalendarPermission &calendarPermission;
    SystemSettings &systemSettings;
    RunLoop &runLoop;
    std::function<void()> activateApplication; ///< brings it in front of all others
    Consents &consents;
    /// Shows where we ask for permissions ourselves: what a settled refusal opens on a desktop that
    /// has no page for it. Nothing while it is empty.
    std::function<void()> showPermissions = {};
};

/// The granted states for whoever shows them, and the one place that asks for permissions or
/// opens the settings where asking can't help. Keeps no state: the properties tell what the
/// system said at the last `refresh`. Main thread only.
class PermissionsManager : public std::enable_shared_from_this<PermissionsManager> {
public:
    /// Shared, because the steps that a request leaves for later keep the manager alive.
    static std::shared_ptr<PermissionsManager> make(PermissionsContext context);

    PermissionsManager(const PermissionsManager &) = delete;
    PermissionsManager &operator=(const PermissionsManager &) = delete;

    /// Fires before every assignment below, equal values included.
    ChangePublisher objectWillChange;

    Published<bool> accessibilityGranted{objectWillChange, false};
    Published<bool> locationGranted{objectWillChange, false};
    Published<bool> calendarGranted{objectWillChange, false};
    Published<bool> remindersGranted{objectWillChange, false};

    static QString accessibilityLink();
    static QString locationLink();
    static QString calendarLink();
    static QString remindersLink();
    static QString privacyLink(); ///< of the page that leads to all of them

    /// Reads the four states anew.
    void refresh();

    /// What the desktop lets the permission to input timing be of use for: see `InputEvents`.
    bool canCountKeys() const;
    bool inputConsentTellsFront() const;

    /// What keeps the true position away, to be told beside the state.
    LocationHindrance locationHindrance() const;

    /// On the user's action only: the system has no question of its own for it, so that the wish
    /// is the answer.
    void requestAccessibility();

    /// On the user's action only: each asks, or opens the settings when the answer is settled.
    void requestLocation();
    void requestCalendar();
    void requestReminders();

    /// On the user's action only: takes back what was allowed here. It may be asked for again.
    void withdrawAccessibility();
    void withdrawLocation();
    void withdrawCalendar();
    void withdrawReminders();

private:
    explicit PermissionsManager(PermissionsContext context);

    void withdraw(Consent &consent);
    void requestEntity(EntityType type, const QString &link);
    bool open(const QString &link);
    void openOrShowOurs(const QString &link);

    PermissionsContext m_context;
};

} // namespace zeph
