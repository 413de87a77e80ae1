// SPDX-License-Identifier: MIT
#include "adapters/calendar/EdsServerFixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class EdsEventsTest : public EdsServerFixture {
protected:
    CalendarOwner owner{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
};

CalendarEvent event(Date start, const QString &title, bool isAllDay = false) {
    return {isAllDay, start, title};
}

} // namespace

TEST_F(EdsEventsTest, readsAnEventOfTheDayAndNoneOfAnother) {
    ASSERT_TRUE(
        owner.add("today", "SUMMARY:Standup\nDTSTART:20240507T080000Z\nDTEND:20240507T083000Z"));
    ASSERT_TRUE(
        owner.add("other", "SUMMARY:Other\nDTSTART:20240509T080000Z\nDTEND:20240509T083000Z"));
    EXPECT_TRUE(becomes(2024, 5, 7, {event(at(2024, 5, 7, 10), u"Standup"_s)}));
}

TEST_F(EdsEventsTest, theFirstQuestionIsRefusedAndTheAnswerAnnouncedOnce) {
    int announcements = 0;
    const Subscription subscription = store->subscribe([&] { ++announcements; });
    ASSERT_TRUE(owner.add("a", "SUMMARY:A\nDTSTART:20240507T080000Z\nDTEND:20240507T083000Z"));
    EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
    ASSERT_TRUE(waitUntil([&] { return announcements == 1; }));
    ASSERT_TRUE(eventsOf(2024, 5, 7));
    EXPECT_EQ(eventsOf(2024, 5, 7)->size(), 1U);
    // A later change is taken along without a word.
    ASSERT_TRUE(owner.add("b", "SUMMARY:B\nDTSTART:20240507T090000Z\nDTEND:20240507T093000Z"));
    EXPECT_TRUE(waitUntil([&] { return eventsOf(2024, 5, 7)->size() == 2; }));
    EXPECT_EQ(announcements, 1);
}

TEST_F(EdsEventsTest, aSeriesKeepsItsLocalTimeAcrossTheClockChange) {
    ASSERT_TRUE(owner.add("weekly", "SUMMARY:Brunch\nDTSTART;TZID=Europe/Berlin:20240324T110000\n"
                                    "DTEND;TZID=Europe/Berlin:20240324T120000\nRRULE:FREQ=WEEKLY"));
    // Summer time begins on the 31st: 11:00 is 10:00 UTC before and 09:00 UTC from then on.
    EXPECT_TRUE(becomes(2024, 3, 24, {event({1'711'274'400.0}, u"Brunch"_s)}));
    EXPECT_TRUE(becomes(2024, 3, 31, {event({1'711'875'600.0}, u"Brunch"_s)}));
    EXPECT_TRUE(becomes(2024, 4, 1, {}));
}

TEST_F(EdsEventsTest, anEventOverMidnightBelongsToBothDays) {
    ASSERT_TRUE(owner.add("night", "SUMMARY:Night\nDTSTART;TZID=Europe/Berlin:20240507T230000\n"
                                   "DTEND;TZID=Europe/Berlin:20240508T010000"));
    EXPECT_TRUE(becomes(2024, 5, 7, {event(at(2024, 5, 7, 23), u"Night"_s)}));
    EXPECT_TRUE(becomes(2024, 5, 8, {event(at(2024, 5, 7, 23), u"Night"_s)}));
}

TEST_F(EdsEventsTest, aSeriesOverMidnightShowsTheOccurrenceThatBeganYesterday) {
    ASSERT_TRUE(owner.add("nights", "SUMMARY:Shift\nDTSTART;TZID=Europe/Berlin:20240101T220000\n"
                                    "DTEND;TZID=Europe/Berlin:20240102T060000\nRRULE:FREQ=DAILY"));
    EXPECT_TRUE(
        becomes(2024, 5, 8,
                {event(at(2024, 5, 7, 22), u"Shift"_s), event(at(2024, 5, 8, 22), u"Shift"_s)}));
}

TEST_F(EdsEventsTest, anEventThatEndsAtMidnightIsOverAndOneWithoutALengthCounts) {
    ASSERT_TRUE(owner.add("late", "SUMMARY:Late\nDTSTART;TZID=Europe/Berlin:20240507T230000\n"
                                  "DTEND;TZID=Europe/Berlin:20240508T000000"));
    ASSERT_TRUE(owner.add("point", "SUMMARY:Point\nDTSTART;TZID=Europe/Berlin:20240508T120000\n"
                                   "DTEND;TZID=Europe/Berlin:20240508T120000"));
    EXPECT_TRUE(becomes(2024, 5, 8, {event(at(2024, 5, 8, 12), u"Point"_s)}));
}

TEST_F(EdsEventsTest, anAllDayEventIsMarkedAndCoversItsLocalDayOnly) {
    ASSERT_TRUE(owner.add("day", "SUMMARY:Holiday\nDTSTART;VALUE=DATE:20240508\n"
                                 "DTEND;VALUE=DATE:20240509"));
    EXPECT_TRUE(becomes(2024, 5, 8, {event(at(2024, 5, 8), u"Holiday"_s, true)}));
    EXPECT_TRUE(becomes(2024, 5, 9, {}));
    EXPECT_TRUE(becomes(2024, 5, 7, {}));
}

TEST_F(EdsEventsTest, anotherZoneAndAFloatingTimeAreReadRight) {
    ASSERT_TRUE(owner.add("zone",
                          "SUMMARY:New York\nDTSTART;TZID=America/New_York:20240507T090000\n"
                          "DTEND;TZID=America/New_York:20240507T100000"));
    ASSERT_TRUE(owner.add("floating", "SUMMARY:Floating\nDTSTART:20240507T090000\nDURATION:PT1H"));
    EXPECT_TRUE(becomes(
        2024, 5, 7,
        {event(at(2024, 5, 7, 15), u"New York"_s), event(at(2024, 5, 7, 9), u"Floating"_s)}));
}

TEST_F(EdsEventsTest, detachedMovedAndRemovedOccurrencesCountAsTheyAre) {
    ASSERT_TRUE(owner.add("daily", "SUMMARY:Daily\nDTSTART;TZID=Europe/Berlin:20240506T100000\n"
                                   "DTEND;TZID=Europe/Berlin:20240506T103000\n"
                                   "RRULE:FREQ=DAILY;COUNT=5\n"
                                   "EXDATE;TZID=Europe/Berlin:20240508T100000"));
    ASSERT_TRUE(owner.change("daily",
                             "SUMMARY:Daily\\, later\nDTSTART;TZID=Europe/Berlin:20240507T160000\n"
                             "DTEND;TZID=Europe/Berlin:20240507T163000",
                             "RECURRENCE-ID;TZID=Europe/Berlin:20240507T100000"));
    // This one moves to another day altogether, far beyond what is watched of the first.
    ASSERT_TRUE(owner.change("daily",
                             "SUMMARY:Daily\\, moved\nDTSTART;TZID=Europe/Berlin:20240520T100000\n"
                             "DTEND;TZID=Europe/Berlin:20240520T103000",
                             "RECURRENCE-ID;TZID=Europe/Berlin:20240509T100000"));
    EXPECT_TRUE(becomes(2024, 5, 6, {event(at(2024, 5, 6, 10), u"Daily"_s)}));
    EXPECT_TRUE(becomes(2024, 5, 7, {event(at(2024, 5, 7, 16), u"Daily, later"_s)}));
    EXPECT_TRUE(becomes(2024, 5, 8, {}));
    EXPECT_TRUE(becomes(2024, 5, 9, {}));
    EXPECT_TRUE(becomes(2024, 5, 10, {event(at(2024, 5, 10, 10), u"Daily"_s)}));
    EXPECT_TRUE(becomes(2024, 5, 20, {event(at(2024, 5, 20, 10), u"Daily, moved"_s)}));
}

TEST_F(EdsEventsTest, aCancelledEventIsGivenAsTheStoreHasIt) {
    ASSERT_TRUE(owner.add("off", "SUMMARY:Off\nSTATUS:CANCELLED\nDTSTART:20240507T080000Z\n"
                                 "DTEND:20240507T083000Z"));
    EXPECT_TRUE(becomes(2024, 5, 7, {event(at(2024, 5, 7, 10), u"Off"_s)}));
}

TEST_F(EdsEventsTest, changesAreToldWithoutAskingTheServerAgain) {
    ASSERT_TRUE(owner.add("a", "SUMMARY:A\nDTSTART:20240507T080000Z\nDTEND:20240507T083000Z"));
    ASSERT_TRUE(owner.add("daily", "SUMMARY:Daily\nDTSTART;TZID=Europe/Berlin:20240506T120000\n"
                                   "DTEND;TZID=Europe/Berlin:20240506T123000\nRRULE:FREQ=DAILY"));
    ASSERT_TRUE(becomes(
        2024, 5, 7, {event(at(2024, 5, 7, 10), u"A"_s), event(at(2024, 5, 7, 12), u"Daily"_s)}));
    ASSERT_TRUE(owner.change("a", "SUMMARY:B\nDTSTART:20240507T090000Z\nDTEND:20240507T093000Z"));
    ASSERT_TRUE(owner.change("daily",
                             "SUMMARY:Moved\nDTSTART;TZID=Europe/Berlin:20240601T100000\n"
                             "DTEND;TZID=Europe/Berlin:20240601T103000",
                             "RECURRENCE-ID;TZID=Europe/Berlin:20240507T120000"));
    EXPECT_TRUE(becomes(2024, 5, 7, {event(at(2024, 5, 7, 11), u"B"_s)}));
    ASSERT_TRUE(owner.remove("a"));
    EXPECT_TRUE(becomes(2024, 5, 7, {}));
}

TEST_F(EdsEventsTest, tomorrowIsKnownBeforeMidnight) {
    ASSERT_TRUE(owner.add("t", "SUMMARY:T\nDTSTART:20240508T080000Z\nDTEND:20240508T083000Z"));
    ASSERT_TRUE(becomes(2024, 5, 7, {}));
    const auto tomorrow = eventsOf(2024, 5, 8);
    ASSERT_TRUE(tomorrow);
    EXPECT_EQ(*tomorrow, std::vector{event(at(2024, 5, 8, 10), u"T"_s)});
}

TEST_F(EdsEventsTest, allEnabledCalendarsAreReadAndADisabledOneOnlyOnceItIsEnabled) {
    CalendarOwner second{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
    CalendarOwner disabled{E_CAL_CLIENT_SOURCE_TYPE_EVENTS, false};
    ASSERT_TRUE(owner.add("1", "SUMMARY:One\nDTSTART:20240507T080000Z\nDTEND:20240507T083000Z"));
    ASSERT_TRUE(second.add("2", "SUMMARY:Two\nDTSTART:20240507T090000Z\nDTEND:20240507T093000Z"));
    ASSERT_TRUE(
        disabled.add("3", "SUMMARY:Three\nDTSTART:20240507T100000Z\nDTEND:20240507T103000Z"));
    const CalendarEvent one = event(at(2024, 5, 7, 10), u"One"_s);
    const CalendarEvent two = event(at(2024, 5, 7, 11), u"Two"_s);
    const CalendarEvent three = event(at(2024, 5, 7, 12), u"Three"_s);
    EXPECT_TRUE(becomes(2024, 5, 7, {one, two}));
    ASSERT_TRUE(disabled.setEnabled(true));
    EXPECT_TRUE(becomes(2024, 5, 7, {one, two, three}));
    ASSERT_TRUE(disabled.setEnabled(false));
    EXPECT_TRUE(becomes(2024, 5, 7, {one, two}));
}

} // namespace zeph
