// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"
#include "widgets/WidgetFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

class CountdownsWidget : public WidgetFixture {
protected:
    static CountdownEvent event(const QString &title, Date date,
                                CountdownRecurrence recurrence = CountdownRecurrence::none) {
        return {QUuid::createUuidV5(QUuid(), title), title, date, recurrence};
    }

    /// The chip of one event that is `seconds` away.
    QString chip(double seconds, CountdownRecurrence recurrence = CountdownRecurrence::none) {
        return chipOn(*state.now + seconds, recurrence);
    }

    QString chipOn(Date date, CountdownRecurrence recurrence = CountdownRecurrence::none) {
        preferences.setCountdowns({event(u"E"_s, date, recurrence)});
        return texts(countdownsWidget(context)).mid(1).join(u'|');
    }
};

TEST_F(CountdownsWidget, isEmptyWithoutEvents) {
    EXPECT_TRUE(draw(countdownsWidget(context)).empty());
}

TEST_F(CountdownsWidget, countsDays) {
    EXPECT_EQ(chipOn(at(8, 0, 0, 3, 13)), u"E · tomorrow"_s);
    EXPECT_EQ(chipOn(at(23, 59, 0, 3, 13)), u"E · tomorrow"_s);
    EXPECT_EQ(chipOn(at(0, 0, 0, 3, 14)), u"E · 2 days"_s);
    EXPECT_EQ(chipOn(at(9, 0, 0, 4, 12)), u"E · 31 days"_s);
    EXPECT_EQ(symbols(countdownsWidget(context)), QStringList{u"calendar.badge.clock"_s});
    EXPECT_EQ(texts(countdownsWidget(context)).front(), u"COUNTING DOWN"_s);
}

TEST_F(CountdownsWidget, countsHoursOfToday) {
    EXPECT_EQ(chip(3600), u"E · in 1h"_s);
    EXPECT_EQ(chip(7199), u"E · in 1h"_s);
    EXPECT_EQ(chip(7200), u"E · in 2h"_s);
}

TEST_F(CountdownsWidget, roundsMinutes) {
    EXPECT_EQ(chip(30 * 60), u"E · in 30m"_s);
    EXPECT_EQ(chip(59 * 60 + 50), u"E · in 60m"_s);
    EXPECT_EQ(chip(60), u"E · in 1m"_s);
    EXPECT_EQ(chip(89), u"E · in 1m"_s);
    EXPECT_EQ(chip(90), u"E · in 2m"_s);
}

TEST_F(CountdownsWidget, isNowWithinAMinuteAround) {
    EXPECT_EQ(chip(59), u"E · now"_s);
    EXPECT_EQ(chip(0), u"E · now"_s);
    EXPECT_EQ(chip(-60), u"E · now"_s);
}

TEST_F(CountdownsWidget, aSingleEventIsDoneAMinuteAfterItsTime) {
    EXPECT_EQ(chip(-61), u"E · done"_s);
}

TEST_F(CountdownsWidget, aDoneEventStaysForADay) {
    state.now = at(9, 41, 0, 3, 13);
    EXPECT_EQ(chipOn(at(9, 41, 1)), u"E · done"_s);
    EXPECT_EQ(chipOn(at(9, 41, 0)), QString());
}

TEST_F(CountdownsWidget, aRecurringEventIsTodayUntilMidnightAndThenRolls) {
    const Date morning = at(8, 0);
    EXPECT_EQ(chipOn(morning, CountdownRecurrence::weekly), u"E · today!"_s);
    state.now = at(23, 59, 59);
    EXPECT_EQ(chipOn(morning, CountdownRecurrence::weekly), u"E · today!"_s);
    state.now = at(0, 0, 0, 3, 13);
    EXPECT_EQ(chipOn(morning, CountdownRecurrence::weekly), u"E · 6 days"_s);
}

TEST_F(CountdownsWidget, showsTheSixNearestInOrder) {
    std::vector<CountdownEvent> events;
    for (int day = 20; day > 12; --day) {
        events.push_back(event(QString::number(day), at(9, 0, 0, 3, day)));
    }
    preferences.setCountdowns(events);
    EXPECT_EQ(texts(countdownsWidget(context)).mid(1),
              (QStringList{u"13 · tomorrow"_s, u"14 · 2 days"_s, u"15 · 3 days"_s, u"16 · 4 days"_s,
                           u"17 · 5 days"_s, u"18 · 6 days"_s}));
}

TEST_F(CountdownsWidget, sortsByTheNextOccurrence) {
    preferences.setCountdowns({event(u"Later"_s, at(9, 0, 0, 3, 20)),
                               event(u"Weekly"_s, at(9, 0, 0, 1, 2), CountdownRecurrence::weekly)});
    EXPECT_EQ(texts(countdownsWidget(context)).mid(1),
              (QStringList{u"Weekly · tomorrow"_s, u"Later · 8 days"_s}));
}

} // namespace zeph
