// SPDX-License-Identifier: MIT
#include "golden/SampleDay.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr double hour = 3600;
constexpr double minute = 60;

AppUsage app(const QString &name, double seconds) {
    return {name, name, seconds, {}};
}

CountdownEvent event(const QString &title, Date date,
                     CountdownRecurrence recurrence = CountdownRecurrence::none) {
    return {QUuid::createUuidV5(QUuid(), title), title, date, recurrence};
}

} // namespace

SampleDay::SampleDay() {
    preferences.setUnitSystem(UnitSystem::metric);
    preferences.set(WidgetPlacement::always, WidgetKind::desktop);
    preferences.set(WidgetPlacement::always, WidgetKind::reminders);
    state.dockInsets = EdgeInsets{0, 0, 0, 0};
}

void SampleDay::fillMorning() {
    state.now = at(10, 24, 0, 5, 14);
    clock.set(*state.now);
    state.solar = SolarInfo{at(5, 21, 0, 5, 14), at(20, 52, 0, 5, 14), 0.85};
    state.weather = WeatherInfo{17.4, 16.8, 2, true, u"Freiburg"_s, *state.now};
    state.airQuality = AirQualityInfo{38, *state.now};
    state.quote =
        QuoteInfo{u"A quiet page lets the eye rest, and the mind begin."_s, u"Mara Lindqvist"_s};
    state.onThisDay =
        OnThisDayInfo{u"1973"_s, u"A laboratory as large as a house is lifted into orbit, where "
                                 u"three crews will live and work in turn."_s};
    state.iss = ISSInfo{u"the Indian Ocean"_s, 8422.0, 418.0};
    state.apod = APODInfo{u"A Spiral Seen Nearly Edge-on"_s, u"2026-05-14"_s, {}};
    fillApplications();
    fillMachine();
    fillCalendar();
    fillHistory();
}

void SampleDay::fillApplications() {
    state.currentAppName = u"Text Editor"_s;
    state.rankedApps = std::vector<AppUsage>{app(u"Text Editor"_s, 72 * minute),
                                             app(u"Browser"_s, 38 * minute),
                                             app(u"Terminal"_s, 21 * minute),
                                             app(u"Mail"_s, 9 * minute),
                                             app(u"Music"_s, 4 * minute),
                                             app(u"Files"_s, 48),
                                             app(u"Calculator"_s, 12)};
    state.rhythm = InputRhythm{168, 14210, 913, 412, 142};
    ActivitySummary activity;
    activity.activeSeconds = 2 * hour + 26 * minute;
    activity.machineOnSeconds = 2 * hour + 51 * minute;
    activity.appSwitches = 64;
    state.activity = activity;
}

void SampleDay::fillMachine() {
    state.battery = BatteryInfo{82, false, false, 251, 94, 212, true};
    state.load = SystemLoad{0.17, 0, 0, 0.46};
    state.disk = DiskInfo{212'400'000'000, 512'100'000'000};
    state.network = NetworkThroughput{20'000, 1'258'291, u"Attic"_s};
    state.uptimeSeconds = 2 * 24 * hour + 5 * hour;
    state.deviceBatteries = std::vector<DeviceBattery>{
        {u"Travel Mouse"_s, 64}, {u"Desk Keyboard"_s, 88}, {u"Studio Headphones"_s, 41}};
    state.desktop = DesktopSummary{11,
                                   {{DesktopCategory::screenshots, 3},
                                    {DesktopCategory::images, 1},
                                    {DesktopCategory::documents, 4},
                                    {DesktopCategory::folders, 2},
                                    {DesktopCategory::other, 1}},
                                   4'200'000,
                                   true};
}

void SampleDay::fillCalendar() {
    state.calendar = CalendarSummary{at(11, 30, 0, 5, 14), u"Design review"_s, 3, 66};
    state.reminders = RemindersSummary{
        2,
        1,
        {u"Send the floor plan to Jo"_s, u"Water the tomatoes"_s, u"Book the train to Bern"_s},
        *state.now};
    preferences.setCountdowns(
        {event(u"Summer trip"_s, at(8, 0, 0, 6, 6)), event(u"Standup"_s, at(11, 0, 0, 5, 14)),
         event(u"Anna’s birthday"_s, at(0, 0, 0, 5, 15), CountdownRecurrence::yearly),
         event(u"Rent"_s, at(9, 0, 0, 1, 31), CountdownRecurrence::monthly)});
}

void SampleDay::fillHistory() {
    ActivitySummary usual;
    usual.activeSeconds = 2 * hour + 40 * minute;
    for (const QString &day : {u"2026-05-11"_s, u"2026-05-12"_s, u"2026-05-13"_s}) {
        usage.saveDailyStats(usual, {}, day);
    }
}

void SampleDay::fillNight() {
    fillMorning();
    state.now = at(22, 47, 0, 5, 14);
    state.solar = SolarInfo{at(5, 19, 0, 5, 15), at(20, 52, 0, 5, 14), 0};
    state.weather = WeatherInfo{9.2, 8.1, 0, false, u"Freiburg"_s, *state.now};
    state.airQuality = AirQualityInfo{112, *state.now};
    state.calendar = CalendarSummary{{}, {}, 3, {}};
    state.currentAppName = u"Music"_s;
    state.rankedApps =
        std::vector<AppUsage>{app(u"Text Editor"_s, 4.6 * hour), app(u"Browser"_s, 2.2 * hour),
                              app(u"Terminal"_s, 72 * minute),   app(u"Music"_s, 51 * minute),
                              app(u"Mail"_s, 33 * minute),       app(u"Files"_s, 6 * minute)};
    state.rhythm = InputRhythm{2, 41310, 4120, 3380, 142};
    ActivitySummary activity;
    activity.activeSeconds = 9 * hour + 12 * minute;
    activity.machineOnSeconds = 14 * hour;
    activity.appSwitches = 271;
    state.activity = activity;
    state.battery = BatteryInfo{97, true, true, 12, 94, 212, true};
    state.load = SystemLoad{0.04, 0, 0, 0.61};
    state.iss = ISSInfo{u"Switzerland"_s, 388, 419};
}

void SampleDay::fillWorldly() {
    fillMorning();
    state.weather = WeatherInfo{-3.6, {}, 86, true, u"東京都千代田区"_s, *state.now};
    state.currentAppName = u"محرر النصوص"_s;
    state.rankedApps =
        std::vector<AppUsage>{app(u"Schematic Capture Professional 2026"_s, 11.9 * hour),
                              app(u"メモ帳"_s, 3 * hour),
                              app(u"דפדפן"_s, 59 * minute),
                              app(u"محرر النصوص"_s, 31 * minute),
                              app(u"🎧 Music"_s, 4 * minute),
                              app(u"文字处理软件专业版简体中文"_s, 48)};
    state.calendar =
        CalendarSummary{at(14, 0, 0, 5, 14), u"🎉 Rückblick mit Ðorđe & 山田さん"_s, 3, 216};
    state.reminders =
        RemindersSummary{12,
                         0,
                         {u"切符を買う (東京 → 大阪)"_s, u"اتصل بالطبيب قبل الساعة 5"_s,
                          u"לקנות חלב 🥛 ולחם"_s},
                         *state.now};
    preferences.setCountdowns(
        {event(u"👩‍👩‍👧‍👦 Family day by the lake with everyone"_s,
               at(8, 0, 0, 5, 24)),
         event(u"יום הולדת"_s, at(0, 0, 0, 5, 15)), event(u"中秋节"_s, at(0, 0, 0, 9, 25)),
         event(u"عيد"_s, at(0, 0, 0, 5, 27))});
    state.deviceBatteries = std::vector<DeviceBattery>{
        {u"Ana’s Very Long Wireless Headphones, Second Edition"_s, 7}, {u"键盘 Keyboard"_s, 100}};
    state.network = NetworkThroughput{0, 48'000'000, u"☕ Café Überall – Gäste 5 GHz"_s};
    state.quote =
        QuoteInfo{u"千里の道も一歩から。どんなに長い旅も、はじめの一歩から始まる。急がず、休まず、"
                  u"ただ歩き続けること。"_s,
                  u"老子"_s};
    state.onThisDay = OnThisDayInfo{
        u"1948"_s, u"نص عربي طويل يملأ سطرين على الأقل حتى نرى كيف تلتف الكلمات من اليمين إلى "
                   u"اليسار في هذا المكان الهادئ من الشاشة."_s};
    state.iss = ISSInfo{u"São Tomé and Príncipe"_s, 6120.0, 420.0};
}

} // namespace zeph
