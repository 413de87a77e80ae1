// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"
#include "widgets/WidgetFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

using MeetingWidget = WidgetFixture;
using AppWidgets = WidgetFixture;
using RhythmWidget = WidgetFixture;
using RemindersWidget = WidgetFixture;

TEST_F(MeetingWidget, tellsTheNextMeeting) {
    EXPECT_EQ(texts(meetingWidget(context)), QStringList{u"Nothing on your calendar"_s});
    EXPECT_EQ(symbols(meetingWidget(context)), QStringList{u"calendar"_s});
    state.calendar = CalendarSummary{at(10, 0), u"Planning"_s, 2, 19};
    EXPECT_EQ(texts(meetingWidget(context)), QStringList{u"Next up in 19m, at 10:00 am"_s});
}

TEST_F(AppWidgets, namesTheCurrentApplication) {
    EXPECT_EQ(texts(currentAppWidget(context)), QStringList{u"Settling in"_s});
    EXPECT_EQ(symbols(currentAppWidget(context)), QStringList{u"app.dashed"_s});
    state.currentAppName = u"Text Editor"_s;
    EXPECT_EQ(texts(currentAppWidget(context)), QStringList{u"Right now: Text Editor"_s});
}

TEST_F(AppWidgets, headlinesTheMostUsedApplicationInTheRoundFace) {
    EXPECT_EQ(texts(topAppWidget(context)), QStringList{u"Your day is just beginning"_s});
    state.rankedApps = std::vector<AppUsage>{{u"code"_s, u"Code"_s, 5400, {}}};
    const TextItem headline =
        textItem(topAppWidget(context), u"You've lived in Code today · 1h 30m"_s);
    EXPECT_EQ(headline.style.font.size, 21);
    EXPECT_EQ(headline.style.font.weight, FontWeight::regular);
    EXPECT_EQ(headline.style.font.design, FontDesign::rounded);
    expectColor(headline.style.color, textColor(0.92));
    EXPECT_TRUE(symbols(topAppWidget(context)).isEmpty());
}

TEST_F(AppWidgets, rankingWaitsForTheFirstApplication) {
    EXPECT_EQ(
        texts(appRankingWidget(context)),
        (QStringList{u"WHERE YOUR TIME WENT"_s, u"Tavi is just starting to learn your day."_s}));
}

TEST_F(AppWidgets, rankingShowsNoMoreThanSix) {
    std::vector<AppUsage> apps;
    for (int i = 0; i < 9; ++i) {
        apps.push_back({QString::number(i), u"App %1"_s.arg(i), 900.0 - i * 60, {}});
    }
    state.rankedApps = apps;
    const QStringList drawn = texts(appRankingWidget(context));
    EXPECT_EQ(drawn.size(), 1 + 6 * 2);
    EXPECT_TRUE(drawn.contains(u"App 5"_s));
    EXPECT_FALSE(drawn.contains(u"App 6"_s));
}

TEST_F(AppWidgets, rankingBarsCompareWithTheFirst) {
    state.rankedApps = std::vector<AppUsage>{{u"a"_s, u"Longest"_s, 3600, {}},
                                             {u"b"_s, u"Half"_s, 1800, {}},
                                             {u"c"_s, u"Blink"_s, 1, {}}};
    const std::vector<ShapeItem> bars = shapes(appRankingWidget(context));
    ASSERT_EQ(bars.size(), 6U);
    const double track = bars[0].rect.width();
    EXPECT_EQ(bars[0].rect.height(), 10);
    expectColor(bars[0].fill->start, textColor(0.08));
    expectColor(bars[1].fill->start, palette.accent.opacity(0.55));
    EXPECT_FALSE(bars[1].fill->end.has_value());
    EXPECT_EQ(bars[1].rect.width(), track);
    EXPECT_EQ(bars[3].rect.width(), track / 2);
    EXPECT_EQ(bars[5].rect.width(), 6);
}

TEST_F(AppWidgets, rankingOfOneApplicationShowsAFullBar) {
    state.rankedApps = std::vector<AppUsage>{{u"a"_s, u"Only"_s, 61, {}}};
    const std::vector<ShapeItem> bars = shapes(appRankingWidget(context));
    ASSERT_EQ(bars.size(), 2U);
    EXPECT_EQ(bars[1].rect.width(), bars[0].rect.width());
}

TEST_F(AppWidgets, rankingWithoutAnyTimeYetShowsTheShortestBar) {
    state.rankedApps = std::vector<AppUsage>{{u"a"_s, u"Only"_s, 0, {}}};
    const std::vector<ShapeItem> bars = shapes(appRankingWidget(context));
    ASSERT_EQ(bars.size(), 2U);
    EXPECT_EQ(bars[1].rect.width(), 6);
}

TEST_F(AppWidgets, rankingAlignsNamesAndTimes) {
    state.rankedApps =
        std::vector<AppUsage>{{u"a"_s, QString(60, u'n'), 3600, {}}, {u"b"_s, u"Half"_s, 1860, {}}};
    const View ranking = appRankingWidget(context);
    const TextItem name = textItem(ranking, u"Half"_s);
    EXPECT_EQ(name.style.font.size, 14);
    expectColor(name.style.color, textColor(0.9));
    EXPECT_EQ(name.origin.x(), 0);
    EXPECT_TRUE(texts(ranking).at(1).endsWith(u'…'));

    const TextItem longTime = textItem(ranking, u"1h"_s);
    const TextItem shortTime = textItem(ranking, u"31m"_s);
    EXPECT_EQ(longTime.style.font.size, 13);
    expectColor(longTime.style.color, textColor(0.7));
    const auto right = [this](const TextItem &item) {
        return item.origin.x() + metrics.size(item.text, item.style.font).width();
    };
    EXPECT_EQ(right(longTime), right(shortTime));
    EXPECT_EQ(right(longTime), naturalSize(ranking).width());
    EXPECT_LE(naturalSize(ranking).width(), 440);
}

TEST_F(AppWidgets, rankingRowsStandTenPointsApart) {
    state.rankedApps =
        std::vector<AppUsage>{{u"a"_s, u"One"_s, 3600, {}}, {u"b"_s, u"Two"_s, 1860, {}}};
    const View ranking = appRankingWidget(context);
    EXPECT_DOUBLE_EQ(textItem(ranking, u"Two"_s).origin.y() -
                         textItem(ranking, u"One"_s).origin.y(),
                     lineHeight(14) + 10);
}

namespace {

ActivitySummary twoHoursOfThree() {
    ActivitySummary activity;
    activity.activeSeconds = 7200;
    activity.machineOnSeconds = 10800;
    activity.appSwitches = 57;
    return activity;
}

} // namespace

TEST_F(RhythmWidget, tellsTypingSwitchesCursorAndActivityInThisOrder) {
    preferences.setUnitSystem(UnitSystem::metric);
    state.rhythm = InputRhythm{42, 9000, 300, 1432.0, 40};
    state.activity = twoHoursOfThree();
    EXPECT_EQ(texts(rhythmWidget(context)),
              (QStringList{u"YOUR RHYTHM"_s, u"Typing at your steady pace"_s,
                           u"57 app switches · an even rhythm"_s, u"Cursor traveled 1.4km"_s,
                           u"Active 2h of 3h on"_s}));
    EXPECT_EQ(symbols(rhythmWidget(context)),
              (QStringList{u"keyboard"_s, u"arrow.left.arrow.right"_s, u"cursorarrow.motionlines"_s,
                           u"clock.arrow.circlepath"_s}));
}

TEST_F(RhythmWidget, saysWhereKeysCanNotBeCountedAndTellsTheRest) {
    InputRhythm uncounted;
    uncounted.isCountable = false;
    state.rhythm = uncounted;
    state.activity = twoHoursOfThree();
    EXPECT_EQ(texts(rhythmWidget(context)),
              (QStringList{u"YOUR RHYTHM"_s, u"Keys can't be counted on this desktop"_s,
                           u"57 app switches · an even rhythm"_s, u"Active 2h of 3h on"_s}));
    EXPECT_EQ(
        symbols(rhythmWidget(context)),
        (QStringList{u"keyboard"_s, u"arrow.left.arrow.right"_s, u"clock.arrow.circlepath"_s}));
}

TEST_F(RhythmWidget, theCursorMustTravelMoreThanAMeter) {
    preferences.setUnitSystem(UnitSystem::metric);
    state.rhythm = InputRhythm{0, 0, 0, 1.0, 0};
    EXPECT_EQ(texts(rhythmWidget(context)).at(3), u"Cursor barely moved"_s);
    state.rhythm = InputRhythm{0, 0, 0, 1.01, 0};
    EXPECT_EQ(texts(rhythmWidget(context)).at(3), u"Cursor traveled 1m"_s);
}

TEST_F(RhythmWidget, comparesTheDayWithTheHistory) {
    clock.set(*state.now);
    ActivitySummary earlier;
    earlier.activeSeconds = 3600;
    usage.saveDailyStats(earlier, {}, u"2026-03-11"_s);
    ActivitySummary today;
    today.activeSeconds = 7200;
    state.activity = today;
    EXPECT_EQ(texts(rhythmWidget(context)).at(4), u"Active 2h · more than usual"_s);
}

TEST_F(RhythmWidget, setsItsLinesOnAnEvenPitch) {
    const View rhythm = rhythmWidget(context);
    const double first = symbolItem(rhythm, u"keyboard"_s).box.center().y();
    EXPECT_DOUBLE_EQ(symbolItem(rhythm, u"arrow.left.arrow.right"_s).box.center().y() - first, 34);
    EXPECT_DOUBLE_EQ(symbolItem(rhythm, u"clock.arrow.circlepath"_s).box.center().y() - first,
                     3 * 34);
}

TEST_F(RemindersWidget, saysWhenNothingIsDue) {
    EXPECT_EQ(texts(remindersWidget(context)),
              (QStringList{u"REMINDERS"_s, u"Nothing due today · clear runway"_s}));
    EXPECT_EQ(symbols(remindersWidget(context)), QStringList{u"checklist"_s});
}

TEST_F(RemindersWidget, countsWhatIsDueAndOverdue) {
    state.reminders = RemindersSummary{2, 1, {}, at(9, 40)};
    EXPECT_EQ(texts(remindersWidget(context)).at(1), u"2 due today · 1 overdue"_s);
    state.reminders = RemindersSummary{2, 0, {}, at(9, 40)};
    EXPECT_EQ(texts(remindersWidget(context)).at(1), u"2 due today"_s);
    state.reminders = RemindersSummary{0, 3, {}, at(9, 40)};
    EXPECT_EQ(texts(remindersWidget(context)).at(1), u"3 overdue"_s);
}

TEST_F(RemindersWidget, listsTheTitlesInOrder) {
    state.reminders = RemindersSummary{2, 0, {u"Water the plants"_s, u"Call home"_s}, at(9, 40)};
    EXPECT_EQ(texts(remindersWidget(context)).mid(2),
              (QStringList{u"Water the plants"_s, u"Call home"_s}));
    EXPECT_EQ(symbols(remindersWidget(context)),
              (QStringList{u"checklist"_s, u"circle"_s, u"circle"_s}));
}

} // namespace zeph
