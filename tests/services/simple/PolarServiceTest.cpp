// SPDX-License-Identifier: MIT
#include "services/simple/PolarService.h"

#include "services/simple/SimpleFixture.h"

#include "services/web/Json.h"
#include "support/UtcCalendar.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// A calendar that can't tell where a month begins.
class MonthlessCalendar : public UtcCalendar {
public:
    std::optional<DateInterval> interval(CalendarUnit unit, Date date) const override {
        return unit == CalendarUnit::month ? std::nullopt : UtcCalendar::interval(unit, date);
    }
};

class Polar : public Simple {
protected:
    PolarService service{client, endpoints, clock, context};
    std::vector<HttpHeader> authorization{{"Authorization", "Bearer polar_1"}};
};

} // namespace

TEST_F(Polar, showsTheFiguresOfTheLastPeriod) {
    expectJson("https://api.polar.sh/v1/metrics/"
               "?start_date=2026-11-01&end_date=2026-11-21&interval=month",
               recorded(u"polar/metrics.json"_s), authorization);
    expectCard(service.fetch(u"polar_1"_s), u"polar"_s, u"Polar"_s,
               {{u"repeat"_s, u"$987 MRR"_s},
                {u"banknote"_s, u"$1,234.56 this month"_s},
                {u"person.2"_s, u"51 active subs"_s},
                {u"creditcard"_s, u"14 orders"_s}});
}

TEST_F(Polar, beginsWithTodayWhereTheMonthHasNoBeginning) {
    const MonthlessCalendar monthless;
    PolarService lost(client, endpoints, clock, {preferences, monthless, formatters});
    expectJson("https://api.polar.sh/v1/metrics/"
               "?start_date=2026-11-21&end_date=2026-11-21&interval=month",
               R"({"items":[{}]})", authorization);
    EXPECT_EQ(lost.fetch(u"polar_1"_s).error, std::nullopt);
}

TEST_F(Polar, showsOnlyTheFiguresThatAreThere) {
    const auto card = polarCard(
        json::parse(
            R"({"items":[{"mrr":null,"revenue":"5","active_subscriptions":1e300,"orders":0}]})"),
        context);
    const Chips expectedChips{{u"creditcard"_s, u"0 orders"_s}};
    EXPECT_EQ(card.chips, expectedChips);
    EXPECT_TRUE(polarCard(json::parse(R"({"items":[{}]})"), context).chips.empty());
}

TEST_F(Polar, needsAPeriod) {
    for (const char *body : {"{}", R"({"items":[]})", R"({"items":{}})", R"({"items":[{},7]})"}) {
        EXPECT_THROW(polarCard(json::parse(body), context), ServiceError) << body;
    }
}

TEST_F(Polar, tellsTheServicesWordsOfARefusal) {
    expect("https://api.polar.sh/v1/metrics/"
           "?start_date=2026-11-01&end_date=2026-11-21&interval=month",
           {acceptJson(), authorization.front()},
           FakeHttpClient::json(recorded(u"polar/error-401.json"_s), 401));
    expectFailure(service.fetch(u"polar_1"_s), u"polar"_s, u"invalid_token"_s);
}

TEST_F(Polar, refusesAnEmptyToken) {
    expectFailure(service.fetch(u""_s), u"polar"_s, u"Add a Polar access token."_s);
}

} // namespace zeph
