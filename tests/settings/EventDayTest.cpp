// SPDX-License-Identifier: MIT
#include "settings/EventDay.h"

#include <QDateTime>

#include <gtest/gtest.h>

namespace zeph {

namespace {

QDateTime local(Date date) {
    return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(date.secondsSince1970));
}

} // namespace

TEST(EventDayTest, anEventThatComesOnceIsNotOverBeforeItsDayIs) {
    const QDate day(2026, 6, 6);
    EXPECT_EQ(local(eventDate(day, CountdownRecurrence::none)), QDateTime(day, QTime(23, 59)));
}

TEST(EventDayTest, anEventThatComesAgainBeginsWithItsDay) {
    const QDate day(2026, 6, 6);
    for (const auto recurrence :
         {CountdownRecurrence::weekly, CountdownRecurrence::monthly, CountdownRecurrence::yearly}) {
        EXPECT_EQ(local(eventDate(day, recurrence)), QDateTime(day, QTime(0, 0)));
    }
}

TEST(EventDayTest, aDayThatIsAnHourShorterOrLongerIsStillTheDay) {
    for (const QDate day : {QDate(2026, 3, 29), QDate(2026, 10, 25)}) {
        EXPECT_EQ(localDay(eventDate(day, CountdownRecurrence::none)), day);
        EXPECT_EQ(localDay(eventDate(day, CountdownRecurrence::weekly)), day);
    }
}

TEST(EventDayTest, theDayOfAnInstantIsTheLocalOne) {
    const Date evening{1'780'783'200.0}; // 2026-06-06 22:00 UTC, past midnight in Berlin
    EXPECT_EQ(localDay(evening), QDate(2026, 6, 7));
}

} // namespace zeph
