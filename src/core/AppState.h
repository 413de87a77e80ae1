// SPDX-License-Identifier: MIT
#pragma once

#include "core/Published.h"
#include "core/records/AIUsageStats.h"
#include "core/records/APODInfo.h"
#include "core/records/ActivitySummary.h"
#include "core/records/AirQualityInfo.h"
#include "core/records/AnalyticsStats.h"
#include "core/records/AppUsage.h"
#include "core/records/BatteryInfo.h"
#include "core/records/CalendarSummary.h"
#include "core/records/CustomAPIResult.h"
#include "core/records/DesktopSummary.h"
#include "core/records/DeviceBattery.h"
#include "core/records/DiskInfo.h"
#include "core/records/FocusState.h"
#include "core/records/GitHubStats.h"
#include "core/records/ISSInfo.h"
#include "core/records/InputRhythm.h"
#include "core/records/NetworkThroughput.h"
#include "core/records/OnThisDayInfo.h"
#include "core/records/QuoteInfo.h"
#include "core/records/RemindersSummary.h"
#include "core/records/RevenueStats.h"
#include "core/records/SimpleIntegrationStats.h"
#include "core/records/SolarInfo.h"
#include "core/records/StripeStats.h"
#include "core/records/SystemLoad.h"
#include "core/records/WeatherInfo.h"
#include "core/values/EdgeInsets.h"

#include <vector>

namespace zeph {

class Calendar;

/// The latest snapshot of everything that reaches the wallpaper. One instance a process; read and
/// assigned on the main thread only. Records are replaced whole, never changed in place.
class AppState {
public:
    /// `constructedAt` is the first value of `now`.
    explicit AppState(Date constructedAt);

    /// Fires before every assignment to any property below, equal values included.
    ChangePublisher objectWillChange;

    Published<std::vector<AppUsage>> rankedApps{objectWillChange, {}};
    Published<std::optional<QString>> currentAppName{objectWillChange, {}};
    Published<InputRhythm> rhythm{objectWillChange, {}};
    Published<ActivitySummary> activity{objectWillChange, {}};
    Published<BatteryInfo> battery{objectWillChange, {}};
    Published<SystemLoad> load{objectWillChange, {}};
    Published<DiskInfo> disk{objectWillChange, {}};
    Published<NetworkThroughput> network{objectWillChange, {}};
    Published<double> uptimeSeconds{objectWillChange, 0.0};
    Published<std::optional<WeatherInfo>> weather{objectWillChange, {}};
    Published<SolarInfo> solar{objectWillChange, {}};
    Published<CalendarSummary> calendar{objectWillChange, {}};
    Published<FocusState> focus{objectWillChange, FocusState::unknown};
    Published<DesktopSummary> desktop{objectWillChange, {}};
    Published<std::vector<StripeStats>> stripeStats{objectWillChange, {}};
    Published<std::vector<GitHubStats>> githubStats{objectWillChange, {}};
    Published<std::vector<CustomAPIResult>> customResults{objectWillChange, {}};
    Published<std::vector<RevenueStats>> revenueStats{objectWillChange, {}};
    Published<std::vector<AIUsageStats>> aiUsage{objectWillChange, {}};
    Published<std::vector<AnalyticsStats>> analyticsStats{objectWillChange, {}};
    Published<std::vector<SimpleIntegrationStats>> simpleStats{objectWillChange, {}};
    Published<std::optional<QuoteInfo>> quote{objectWillChange, {}};
    Published<std::optional<OnThisDayInfo>> onThisDay{objectWillChange, {}};
    Published<std::optional<APODInfo>> apod{objectWillChange, {}};
    Published<std::optional<ISSInfo>> iss{objectWillChange, {}};
    Published<RemindersSummary> reminders{objectWillChange, {}};
    Published<std::vector<DeviceBattery>> deviceBatteries{objectWillChange, {}};
    Published<std::optional<AirQualityInfo>> airQuality{objectWillChange, {}};
    Published<bool> detailRevealed{objectWillChange, false};
    Published<Date> now;
    Published<EdgeInsets> dockInsets{objectWillChange, {}};

    /// The application with the most time today, absent before any time was counted.
    std::optional<AppUsage> topApp() const;

    /// The brightness of the day, 0 to 1: the sun's arch where sunrise is known, else the sine of
    /// the hour of `now`, which is 0 from 18:00 to 06:59 and steps once an hour.
    double moodFraction(const Calendar &localCalendar) const;
};

} // namespace zeph
