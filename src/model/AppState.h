// SPDX-License-Identifier: MIT
#pragma once

#include "base/EdgeInsets.h"
#include "base/Published.h"
#include "model/AIUsageStats.h"
#include "model/APODInfo.h"
#include "model/ActivitySummary.h"
#include "model/AirQualityInfo.h"
#include "model/AnalyticsStats.h"
#include "model/AppUsage.h"
#include "model/BatteryInfo.h"
#include "model/CalendarSummary.h"
#include "model/CustomAPIResult.h"
#include "model/DesktopSummary.h"
#include "model/DeviceBattery.h"
#include "model/DiskInfo.h"
#include "model/FocusState.h"
#include "model/GitHubStats.h"
#include "model/ISSInfo.h"
#include "model/InputRhythm.h"
#include "model/NetworkThroughput.h"
#include "model/OnThisDayInfo.h"
#include "model/QuoteInfo.h"
#include "model/RemindersSummary.h"
#include "model/RevenueStats.h"
#include "model/SimpleIntegrationStats.h"
#include "model/SolarInfo.h"
#include "model/StripeStats.h"
#include "model/SystemLoad.h"
#include "model/WeatherInfo.h"

#include <vector>

namespace zeph {

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
    /// `hour`, the local hour of `now`, which is 0 from 18:00 to 06:59 and steps once an hour.
    double moodFraction(int hour) const;
};

} // namespace zeph
