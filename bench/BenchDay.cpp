// SPDX-License-Identifier: MIT
#include "BenchDay.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr double minute = 60;
constexpr double hour = 3600;
constexpr double day = 86400;

} // namespace

BenchDay::BenchDay() {
    preferences.set(WidgetPlacement::always, WidgetKind::desktop);
    preferences.set(WidgetPlacement::always, WidgetKind::reminders);
    fillApplications();
    fillMachine();
    fillPlans();
    fillSentences();
}

void BenchDay::fillApplications() {
    std::vector<AppUsage> ranked;
    double seconds = 3 * hour;
    for (const QString &name :
         {u"Editor"_s, u"Browser"_s, u"Terminal"_s, u"Mail"_s, u"Music"_s, u"Files"_s}) {
        ranked.push_back({name, name, seconds, {}});
        seconds /= 2;
    }
    state.rankedApps = ranked;
    state.currentAppName = u"Editor"_s;
    state.rhythm = InputRhythm{168, 14210, 913, 412, 142};
    ActivitySummary activity;
    activity.activeSeconds = 146 * minute;
    activity.machineOnSeconds = 171 * minute;
    activity.appSwitches = 64;
    state.activity = activity;
}

void BenchDay::fillMachine() {
    state.battery = BatteryInfo{82, false, false, 251, 94, 212, true};
    state.load = SystemLoad{0.17, 0, 0, 0.46};
    state.disk = DiskInfo{212'400'000'000, 512'100'000'000};
    state.network = NetworkThroughput{20'000, 1'258'291, u"Attic"_s};
    state.uptimeSeconds = 2 * day + 5 * hour;
    state.deviceBatteries =
        std::vector<DeviceBattery>{{u"Travel Mouse"_s, 64}, {u"Desk Keyboard"_s, 88}};
    state.desktop = DesktopSummary{
        7, {{DesktopCategory::documents, 5}, {DesktopCategory::folders, 2}}, 4'200'000, true};
}

void BenchDay::fillPlans() {
    const Date now = clock.now();
    state.calendar = CalendarSummary{now + hour, u"Design review"_s, 3, 60};
    state.reminders = RemindersSummary{2, 1, {u"Water the tomatoes"_s, u"Book the train"_s}, now};
    preferences.setCountdowns({{QUuid::createUuidV5(QUuid(), u"trip"_s), u"Summer trip"_s,
                                now + 23 * day, CountdownRecurrence::none},
                               {QUuid::createUuidV5(QUuid(), u"rent"_s), u"Rent"_s, now + 5 * day,
                                CountdownRecurrence::monthly}});
}

void BenchDay::fillSentences() {
    const Date now = clock.now();
    state.solar = SolarInfo{now - 4 * hour, now + 9 * hour, 0.6};
    state.weather = WeatherInfo{17.4, 16.8, 2, true, u"Freiburg"_s, now};
    state.airQuality = AirQualityInfo{38, now};
    state.quote = QuoteInfo{u"A quiet page lets the eye rest, and the mind begin."_s, u"M. L."_s};
    state.onThisDay = OnThisDayInfo{u"1973"_s, u"A laboratory as large as a house is lifted into "
                                               u"orbit, where three crews will live and work."_s};
    state.iss = ISSInfo{u"the Indian Ocean"_s, 8422.0, 418.0};
}

} // namespace zeph
