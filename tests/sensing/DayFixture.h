// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/locale/IcuCalendar.h"
#include "history/UsageStore.h"
#include "sensing/ActivityMonitor.h"
#include "sensing/AppUsageMonitor.h"
#include "support/FakeInputEvents.h"
#include "support/FakeWorkspace.h"
#include "support/ManualClock.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

namespace zeph {

/// The two accountants of the day over one clock, with a real history file, in Berlin.
class DayFixture : public testing::Test {
protected:
    DayFixture() { launch(); }

    /// Begins the program (again) at the clock's moment, as the launch of the program does.
    void launch() {
        activity.reset();
        usage.reset();
        usage = std::make_unique<AppUsageMonitor>(clock, workspace, store);
        activity = std::make_unique<ActivityMonitor>(clock, events, store);
        if (const auto stored = store.loadDailyStats(today())) {
            activity->restore(stored->first);
        }
    }

    /// One fast tick, `seconds` after the last.
    void tick(double seconds = 1.0) {
        clock.advance(seconds);
        usage->tick(ActivityMonitor::idleThreshold < events.idleSeconds);
        activity->tick(usage->currentBundleID(), usage->currentAppName());
        activity->setAppSwitches(usage->appSwitches());
    }

    void ticks(int count) {
        for (int index = 0; index < count; ++index) {
            tick();
        }
    }

    /// The periodic save.
    void persist() {
        store.saveAppUsage(usage->ranked(), today());
        store.saveDailyStats(activity->summary(), {}, today());
    }

    void front(const QString &identifier, const QString &name = {}, const QString &path = {}) {
        workspace.front = application(identifier, name, path);
    }

    QString today() const { return store.dayKey(clock.now()); }

    double secondsOf(const QString &identifier) const {
        const auto found = usage->usageByBundle().find(identifier);
        return found == usage->usageByBundle().end() ? -1 : found->second.seconds;
    }

    /// 30 seconds before the end of 2023-11-14 in Berlin.
    static constexpr double beforeMidnight = 1'700'002'800.0 - 30.0;

    QTemporaryDir folder;
    ManualClock clock{1'699'950'000.0}; // 2023-11-14 09:20 in Berlin
    FakeWorkspace workspace;
    FakeInputEvents events;
    IcuCalendar calendar{QStringLiteral("en_US"), QStringLiteral("Europe/Berlin")};
    UsageStore store{folder.path(), clock, calendar};
    std::unique_ptr<AppUsageMonitor> usage;
    std::unique_ptr<ActivityMonitor> activity;
};

} // namespace zeph
