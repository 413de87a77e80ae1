// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/Date.h"
#include "model/AppUsage.h"

#include <QString>

#include <map>
#include <optional>
#include <vector>

namespace zeph {

class Clock;
class UsageStore;
class Workspace;
struct RunningApplication;

/// Charges foreground seconds to the front application and counts the switches. Main thread only.
class AppUsageMonitor {
public:
    /// Loads what `store` holds of today and follows the workspace's activations.
    AppUsageMonitor(const Clock &clock, Workspace &workspace, UsageStore &store);
    AppUsageMonitor(const AppUsageMonitor &) = delete;
    AppUsageMonitor &operator=(const AppUsageMonitor &) = delete;

    /// Adds what the store holds of today. Does nothing once that has been read; to be called again
    /// after a read that failed.
    void restore();

    /// Charges the time since the last tick, unless `idle` or the gap is not within (0 s, 10 s).
    void tick(bool idle);

    /// Today's applications, most seconds first; equal ones in no order to rely on.
    std::vector<AppUsage> ranked() const;

    const std::map<QString, AppUsage> &usageByBundle() const { return m_usageByBundle; }

    /// The application in front at the last tick that saw one.
    const std::optional<QString> &currentBundleID() const { return m_currentBundleID; }
    const std::optional<QString> &currentAppName() const { return m_currentAppName; }

    /// Switches since the later of launch and midnight.
    qint64 appSwitches() const { return m_appSwitches; }

private:
    void rolloverIfNeeded();
    void appActivated(const RunningApplication &application);
    void charge(const RunningApplication &application, const QString &identifier, double seconds);

    const Clock &m_clock;
    Workspace &m_workspace;
    UsageStore &m_store;
    std::map<QString, AppUsage> m_usageByBundle;
    std::optional<QString> m_currentBundleID;
    std::optional<QString> m_currentAppName;
    qint64 m_appSwitches = 0;
    Date m_lastSampleDate;
    std::optional<QString> m_lastBundleID; // moved by ticks only, so activations compare with it
    QString m_loadedDay;
    bool m_isRestored = false; // what is stored of the loaded day has been added
    Subscription m_activations;
};

} // namespace zeph
