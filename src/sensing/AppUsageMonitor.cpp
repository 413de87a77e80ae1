// SPDX-License-Identifier: MIT
#include "sensing/AppUsageMonitor.h"

#include "history/UsageStore.h"
#include "ports/Clock.h"
#include "ports/Workspace.h"
#include "sensing/TickGap.h"

#include <algorithm>

namespace zeph {

AppUsageMonitor::AppUsageMonitor(const Clock &clock, Workspace &workspace, UsageStore &store)
    : m_clock(clock),
      m_workspace(workspace),
      m_store(store),
      m_lastSampleDate(clock.now()),
      m_loadedDay(store.dayKey(m_lastSampleDate)) {
    restore();
    m_activations = m_workspace.subscribeToActivations(
        [this](const RunningApplication &application) { appActivated(application); });
}

void AppUsageMonitor::restore() {
    if (m_isRestored) {
        return;
    }
    const std::vector<AppUsage> stored = m_store.loadAppUsage(m_loadedDay);
    m_isRestored = m_store.isKnown(UsageTable::applications, m_loadedDay);
    if (!m_isRestored) {
        return;
    }
    for (const AppUsage &usage : stored) {
        const auto [entry, isNew] = m_usageByBundle.try_emplace(usage.bundleID, usage);
        if (!isNew) {
            entry->second.seconds += usage.seconds;
        }
    }
}

void AppUsageMonitor::tick(bool idle) {
    rolloverIfNeeded();
    const Date now = m_clock.now();
    const double gap = now - m_lastSampleDate;
    m_lastSampleDate = now;

    const std::optional<RunningApplication> front = m_workspace.frontmostApplication();
    if (!front || !front->bundleIdentifier) {
        return;
    }
    const QString &identifier = *front->bundleIdentifier;
    m_currentBundleID = identifier;
    m_currentAppName = front->localizedName.value_or(identifier);
    m_lastBundleID = identifier;
    if (!idle && isTickGap(gap)) {
        charge(*front, identifier, gap);
    }
}

void AppUsageMonitor::charge(const RunningApplication &application, const QString &identifier,
                             double seconds) {
    const auto known = m_usageByBundle.find(identifier);
    if (known == m_usageByBundle.end()) {
        m_usageByBundle.emplace(identifier,
                                AppUsage{identifier, application.localizedName.value_or(identifier),
                                         seconds, application.bundlePath});
        return;
    }
    known->second.seconds += seconds;
    if (application.localizedName) {
        known->second.name = *application.localizedName;
    }
}

std::vector<AppUsage> AppUsageMonitor::ranked() const {
    std::vector<const AppUsage *> order;
    order.reserve(m_usageByBundle.size());
    for (const auto &entry : m_usageByBundle) {
        order.push_back(&entry.second);
    }
    std::stable_sort(order.begin(), order.end(),
                     [](const AppUsage *a, const AppUsage *b) { return b->seconds < a->seconds; });
    std::vector<AppUsage> result;
    result.reserve(order.size());
    for (const AppUsage *usage : order) {
        result.push_back(*usage);
    }
    return result;
}

void AppUsageMonitor::appActivated(const RunningApplication &application) {
    if (!application.bundleIdentifier || m_lastBundleID == application.bundleIdentifier) {
        return;
    }
    ++m_appSwitches;
}

void AppUsageMonitor::rolloverIfNeeded() {
    const QString today = m_store.dayKey(m_clock.now());
    if (today == m_loadedDay) {
        return;
    }
    // The last flush of a day lands in the rows of the new one, on purpose: the old day keeps what
    // its last periodic save wrote.
    m_store.saveAppUsage(ranked(), m_store.dayKey(m_clock.now()));
    m_usageByBundle.clear();
    m_appSwitches = 0;
    m_loadedDay = today;
    m_isRestored = true; // a new day begins with nothing
}

} // namespace zeph
