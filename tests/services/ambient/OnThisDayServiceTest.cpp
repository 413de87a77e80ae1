// SPDX-License-Identifier: MIT
#include "services/ambient/OnThisDayService.h"

#include "adapters/locale/IcuCalendar.h"
#include "services/ambient/AmbientAnswers.h"
#include "services/ambient/BrokenAnswers.h"
#include "services/ambient/ServiceFixture.h"
#include "services/web/Json.h"
#include "support/DateOf.h"
#include "support/Fixture.h"
#include "support/QtPrinters.h"
#include "support/RequestText.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Ten events, each with its index for a year.
QByteArray tenEvents() {
    QByteArray events;
    for (int index = 0; index < 10; ++index) {
        events += index == 0 ? "" : ",";
        events += R"({"year":")" + QByteArray::number(index) + R"(","description":"event"})";
    }
    return R"({"events":[)" + events + "]}";
}

class OnThisDayServiceTest : public ServiceFixture {
protected:
    OnThisDayServiceTest() { clock.set(dateOf("2026-11-21T15:15:00+01:00")); }

    IcuCalendar calendar{u"en_US"_s, u"Europe/Berlin"_s};
    /// What the completion got; fails unless it came exactly once.
    std::optional<OnThisDayInfo> fetch() {
        int calls = 0;
        std::optional<OnThisDayInfo> got;
        service->fetch([&](const auto &event) {
            ++calls;
            got = event;
        });
        settle();
        EXPECT_EQ(calls, 1);
        return got;
    }

    std::unique_ptr<OnThisDayService> service =
        std::make_unique<OnThisDayService>(http, endpoints, background, clock, calendar);
};

} // namespace

TEST_F(OnThisDayServiceTest, asksForTheEventsOfToday) {
    answer(fixture("on-this-day/events.json"));
    // Day 325 of the year, ten events: the one at 5.
    EXPECT_EQ(fetch(),
              (OnThisDayInfo{u"1789"_s, u"North Carolina ratifies the Constitution and becomes the "
                                        u"twelfth state."_s}));
    ASSERT_EQ(requestCount(), 1U);
    EXPECT_EQ(requestText(http.requests().front()),
              "GET https://byabbe.se/on-this-day/11/21/events.json\nAccept: application/json");
}

TEST_F(OnThisDayServiceTest, writesMonthAndDayWithoutLeadingZeros) {
    clock.set(dateOf("2026-02-03T00:00:00+01:00"));
    fetch();
    EXPECT_EQ(http.requests().front().url.path(), u"/on-this-day/2/3/events.json"_s);
}

TEST_F(OnThisDayServiceTest, choosesIndex3Of10OnDay123) {
    clock.set(dateOf("2026-05-03T12:00:00+02:00"));
    ASSERT_EQ(calendar.dayOfYear(clock.now()), 123);
    answer(tenEvents());
    EXPECT_EQ(fetch(), (OnThisDayInfo{u"3"_s, u"event"_s}));
    const QJsonValue events = json::parse(tenEvents());
    EXPECT_EQ(AmbientAnswers::onThisDay(events, 0)->year, u"0"_s);
    EXPECT_EQ(AmbientAnswers::onThisDay(events, 366)->year, u"6"_s);
}

TEST_F(OnThisDayServiceTest, asksOnceADay) {
    answer(tenEvents());
    const auto event = fetch();
    answer("");
    clock.set(dateOf("2026-11-21T23:59:59+01:00"));
    EXPECT_EQ(fetch(), event);
    clock.set(dateOf("2026-11-21T00:00:00+01:00"));
    EXPECT_EQ(fetch(), event);
    EXPECT_EQ(requestCount(), 1U);
}

TEST_F(OnThisDayServiceTest, asksAnewAfterMidnight) {
    answer(tenEvents());
    EXPECT_EQ(fetch()->year, u"5"_s);
    clock.set(dateOf("2026-11-22T00:00:00+01:00"));
    EXPECT_EQ(fetch()->year, u"6"_s);
    ASSERT_EQ(requestCount(), 2U);
    EXPECT_EQ(http.requests().back().url.path(), u"/on-this-day/11/22/events.json"_s);
}

TEST_F(OnThisDayServiceTest, hasNothingWhereTheFirstAnswerIsBrokenAndTriesAgain) {
    for (const BrokenAnswer &broken : brokenAnswers()) {
        server = broken.handler;
        EXPECT_EQ(fetch(), std::nullopt) << broken.name;
    }
    EXPECT_EQ(requestCount(), brokenAnswers().size());
    answer(tenEvents());
    EXPECT_TRUE(fetch());
}

TEST_F(OnThisDayServiceTest, servesYesterdaysEventAfterAFailureAndTriesAgain) {
    answer(tenEvents());
    const auto yesterday = fetch();
    clock.advance(86400);
    std::size_t asked = 1;
    for (const BrokenAnswer &broken : brokenAnswers()) {
        server = broken.handler;
        EXPECT_EQ(fetch(), yesterday) << broken.name;
        EXPECT_EQ(requestCount(), ++asked) << broken.name;
    }
}

TEST_F(OnThisDayServiceTest, servesTheOldEventOnAnEmptyArray) {
    answer(tenEvents());
    const auto yesterday = fetch();
    clock.advance(86400);
    answer(R"({"events":[]})");
    EXPECT_EQ(fetch(), yesterday);
    EXPECT_EQ(requestCount(), 2U);
}

TEST_F(OnThisDayServiceTest, needsYearAndDescriptionAsText) {
    for (const char *body :
         {R"({"events":[{"year":1969,"description":"d"}]})", R"({"events":[{"year":"1969"}]})",
          R"({"events":[{"description":"d"}]})", R"({"events":[{"year":"1969","description":7}]})",
          R"({"events":["1969"]})", R"({"events":{"0":{"year":"1969","description":"d"}}})",
          R"([{"year":"1969","description":"d"}])"}) {
        answer(body);
        EXPECT_EQ(fetch(), std::nullopt) << body;
    }
}

TEST_F(OnThisDayServiceTest, servesTheOldEventWhenCancelled) {
    answer(tenEvents());
    const auto yesterday = fetch();
    clock.advance(86400);
    http.cancelAll();
    EXPECT_EQ(fetch(), yesterday);
}

TEST_F(OnThisDayServiceTest, answersOnTheMainThreadAfterTheTaskAndThenWithinTheCall) {
    answer(tenEvents());
    int calls = 0;
    const auto count = [&calls](const auto &event) { calls += event ? 1 : 0; };
    service->fetch(count);
    EXPECT_EQ(requestCount(), 0U);
    tasks.runAll();
    EXPECT_EQ(requestCount(), 1U);
    EXPECT_EQ(calls, 0);
    runLoop.drain();
    EXPECT_EQ(calls, 1);
    service->fetch(count);
    EXPECT_EQ(calls, 2);
    EXPECT_EQ(tasks.waiting(), 0U);
}

TEST_F(OnThisDayServiceTest, tellsNothingAfterItsEnd) {
    answer(tenEvents());
    service->fetch([](const auto &) { ADD_FAILURE() << "told"; });
    tasks.runAll();
    service.reset();
    runLoop.drain();
}

} // namespace zeph
