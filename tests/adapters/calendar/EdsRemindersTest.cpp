// SPDX-License-Identifier: MIT
#include "adapters/calendar/EdsServerFixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class EdsRemindersTest : public EdsServerFixture {
protected:
    /// Waits until these are what is due, whatever the order.
    bool areDue(Date dueBefore, const std::vector<Reminder> &expected) {
        return waitUntil(
            [&] {
                const auto due = reminders(dueBefore);
                return due && sameInAnyOrder(*due, expected);
            },
            std::chrono::seconds(20));
    }

    CalendarOwner owner{E_CAL_CLIENT_SOURCE_TYPE_TASKS};
    const Date tomorrow = at(2024, 5, 8);
};

} // namespace

TEST_F(EdsRemindersTest, aDueDateWithoutATimeIsTheMidnightThatBeginsTheDay) {
    ASSERT_TRUE(owner.add("d", "SUMMARY:Pay rent\nDUE;VALUE=DATE:20240507"));
    EXPECT_TRUE(areDue(tomorrow, {{at(2024, 5, 7), u"Pay rent"_s}}));
}

TEST_F(EdsRemindersTest, aDueTimeIsReadInItsZone) {
    ASSERT_TRUE(owner.add("utc", "SUMMARY:UTC\nDUE:20240507T080000Z"));
    ASSERT_TRUE(owner.add("zone", "SUMMARY:Zone\nDUE;TZID=America/New_York:20240507T090000"));
    ASSERT_TRUE(owner.add("floating", "SUMMARY:Floating\nDUE:20240507T090000"));
    EXPECT_TRUE(areDue(tomorrow, {{at(2024, 5, 7, 10), u"UTC"_s},
                                  {at(2024, 5, 7, 15), u"Zone"_s},
                                  {at(2024, 5, 7, 9), u"Floating"_s}}));
}

TEST_F(EdsRemindersTest, onlyWhatIsToBeDoneAndDueBeforeTheEndCounts) {
    ASSERT_TRUE(owner.add("done", "SUMMARY:Done\nDUE;VALUE=DATE:20240507\nSTATUS:COMPLETED\n"
                                  "COMPLETED:20240501T080000Z\nPERCENT-COMPLETE:100"));
    ASSERT_TRUE(owner.add("off", "SUMMARY:Cancelled\nDUE;VALUE=DATE:20240507\nSTATUS:CANCELLED"));
    ASSERT_TRUE(owner.add("someday", "SUMMARY:Someday"));
    ASSERT_TRUE(owner.add("tomorrow", "SUMMARY:Tomorrow\nDUE;VALUE=DATE:20240508"));
    ASSERT_TRUE(owner.add("old", "SUMMARY:Old\nDUE;VALUE=DATE:20230101"));
    ASSERT_TRUE(owner.add("doing", "SUMMARY:Doing\nDUE;VALUE=DATE:20240507\nSTATUS:IN-PROCESS"));
    EXPECT_TRUE(areDue(tomorrow, {{at(2023, 1, 1), u"Old"_s}, {at(2024, 5, 7), u"Doing"_s}}));
}

TEST_F(EdsRemindersTest, aStartAndALengthStandForADueDate) {
    ASSERT_TRUE(owner.add("l", "SUMMARY:Length\nDTSTART:20240507T080000Z\nDURATION:PT2H"));
    EXPECT_TRUE(areDue(tomorrow, {{at(2024, 5, 7, 12), u"Length"_s}}));
}

TEST_F(EdsRemindersTest, anUntitledTaskHasNoTitle) {
    ASSERT_TRUE(owner.add("u", "DUE;VALUE=DATE:20240507"));
    EXPECT_TRUE(areDue(tomorrow, {{at(2024, 5, 7), std::nullopt}}));
}

TEST_F(EdsRemindersTest, aTaskThatIsCompletedLeavesAndOneThatIsReopenedComesBack) {
    ASSERT_TRUE(owner.add("t", "SUMMARY:T\nDUE;VALUE=DATE:20240507"));
    ASSERT_TRUE(areDue(tomorrow, {{at(2024, 5, 7), u"T"_s}}));
    ASSERT_TRUE(owner.change("t", "SUMMARY:T\nDUE;VALUE=DATE:20240507\nSTATUS:COMPLETED\n"
                                  "COMPLETED:20240501T080000Z\nPERCENT-COMPLETE:100"));
    EXPECT_TRUE(areDue(tomorrow, {}));
    ASSERT_TRUE(owner.change("t", "SUMMARY:T\nDUE;VALUE=DATE:20240507"));
    EXPECT_TRUE(areDue(tomorrow, {{at(2024, 5, 7), u"T"_s}}));
}

TEST_F(EdsRemindersTest, consentToOneKindOpensNothingOfTheOther) {
    CalendarOwner events{E_CAL_CLIENT_SOURCE_TYPE_EVENTS};
    ASSERT_TRUE(events.add("e", "SUMMARY:E\nDTSTART:20240507T080000Z\nDTEND:20240507T083000Z"));
    ASSERT_TRUE(owner.add("t", "SUMMARY:T\nDUE;VALUE=DATE:20240507"));
    consent(3, 2);
    bool answered = false;
    store->fetchIncompleteReminders(tomorrow, [&](const auto &) { answered = true; });
    ASSERT_TRUE(becomes(2024, 5, 7, {{false, at(2024, 5, 7, 10), u"E"_s}}));
    EXPECT_FALSE(answered);

    consent(2, 3);
    EXPECT_TRUE(areDue(tomorrow, {{at(2024, 5, 7), u"T"_s}}));
    EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
}

TEST_F(EdsRemindersTest, aLaterQuestionOvertakesAnUnansweredOne) {
    int first = 0;
    int second = 0;
    store->fetchIncompleteReminders(tomorrow, [&](const auto &) { ++first; });
    store->fetchIncompleteReminders(tomorrow, [&](const auto &) { ++second; });
    EXPECT_TRUE(waitUntil([&] { return second == 1; }));
    EXPECT_EQ(first, 0);
}

} // namespace zeph
