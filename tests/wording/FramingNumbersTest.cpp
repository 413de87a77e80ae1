// SPDX-License-Identifier: MIT
#include "FramingFixture.h"

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

std::string compact(double value) {
    return StatFraming::compact(value).value_or(u"absent"_s).toStdString();
}

} // namespace

TEST(FramingCompact, shortensFrom100000OnAndLeavesGapsBeforeEachUnit) {
    const std::pair<double, std::string> rows[] = {
        {0, "absent"},         {99999, "absent"},     {99999.99, "absent"}, {100000, "100K"},
        {100499, "100K"},      {100500, "101K"},      {999499, "999K"},     {999499.99, "999K"},
        {999500, "absent"},    {999999, "absent"},    {1000000, "1M"},      {1049999, "1M"},
        {1050001, "1.1M"},     {1234567, "1.2M"},     {1250000, "1.2M"},    {2000000, "2M"},
        {9940000, "9.9M"},     {9960000, "10M"},      {9999999, "10M"},     {10000000, "10M"},
        {10499999, "10M"},     {10500000, "11M"},     {12345678, "12M"},    {999499999, "999M"},
        {999500000, "absent"}, {999999999, "absent"}, {1e9, "1B"},          {1.55e9, "1.6B"},
        {999.4e9, "999B"},     {999.5e9, "absent"},   {1e12, "absent"},     {1e300, "absent"}};
    for (const auto &[value, text] : rows) {
        EXPECT_EQ(compact(value), text) << value;
    }
}

TEST(FramingCompact, keepsTheSignOfANegativeNumber) {
    EXPECT_EQ(compact(-2500000), "-2.5M");
    EXPECT_EQ(compact(-100000), "-100K");
    EXPECT_EQ(compact(-99999), "absent");
    EXPECT_EQ(compact(-999500), "absent");
    EXPECT_EQ(compact(-12345678), "-12M");
}

TEST(FramingCompact, isAbsentForWhatIsNotFinite) {
    EXPECT_EQ(compact(nan), "absent");
    EXPECT_EQ(compact(infinity), "absent");
    EXPECT_EQ(compact(-infinity), "absent");
}

class FramingMoney : public Framing {
protected:
    std::string money(qint64 cents, const QString &currency = u"usd"_s) const {
        return StatFraming::money(cents, currency, context).toStdString();
    }
};

TEST_F(FramingMoney, writesWholeAmountsWithoutAndOthersWithDecimals) {
    EXPECT_EQ(money(0), "$0");
    EXPECT_EQ(money(1), "$0.01");
    EXPECT_EQ(money(1200), "$12");
    EXPECT_EQ(money(1250), "$12.5");
    EXPECT_EQ(money(1234), "$12.34");
    EXPECT_EQ(money(-1234), "-$12.34");
    EXPECT_EQ(money(-500), "-$5");
}

TEST_F(FramingMoney, isCompactFrom100000Units) {
    EXPECT_EQ(money(9999999), "$99,999.99");
    EXPECT_EQ(money(10000000), "$100K");
    EXPECT_EQ(money(123456700), "$1.2M");
}

TEST_F(FramingMoney, writesOutTheGapsOfTheCompactForm) {
    EXPECT_EQ(money(99950000), "$999,500");
    EXPECT_EQ(money(100000000000000), "$1,000,000,000,000");
}

TEST_F(FramingMoney, putsTheSignBehindTheSymbolOfACompactAmount) {
    EXPECT_EQ(money(-120000000), "$-1.2M");
}

TEST_F(FramingMoney, takesACodeInAnyCase) {
    EXPECT_EQ(money(1250, u"eur"_s), "€12.5");
    EXPECT_EQ(money(1250, u"EUR"_s), "€12.5");
    EXPECT_EQ(money(10000000, u"gbp"_s), "£100K");
}

TEST_F(FramingMoney, countsHundredthsWhateverTheCurrency) {
    EXPECT_EQ(money(123400, u"jpy"_s), "¥1,234");
    EXPECT_EQ(money(123450, u"jpy"_s), "¥1,234.5");
}

TEST_F(FramingMoney, showsAnUnknownCodeItself) {
    EXPECT_EQ(money(10000000, u"xqz"_s), "XQZ100K");
}

TEST_F(FramingMoney, fallsBackWhereTheFormatterHasNothing) {
    EXPECT_EQ(money(1250, QString()), "1250");
    EXPECT_EQ(money(10000000, QString()), "$100K");
}

TEST_F(FramingMoney, followsTheUsersFormWhenAsked) {
    useSystemNumbers();
    EXPECT_EQ(money(123456, u"eur"_s), "1.234,56\u00a0€");
    EXPECT_EQ(money(1250, u"usd"_s), "12,5\u00a0$");
    EXPECT_EQ(money(10000000, u"eur"_s), "€100K");
}

using FramingCount = Framing;

TEST_F(FramingCount, groupsBelow100000AndIsCompactFromThere) {
    EXPECT_EQ(StatFraming::count(0, context), u"0"_s);
    EXPECT_EQ(StatFraming::count(-1234, context), u"-1,234"_s);
    EXPECT_EQ(StatFraming::count(99999, context), u"99,999"_s);
    EXPECT_EQ(StatFraming::count(100000, context), u"100K"_s);
    EXPECT_EQ(StatFraming::count(999500, context), u"999,500"_s);
}

TEST_F(FramingCount, followsTheUsersGroupingWhenAsked) {
    useSystemNumbers();
    EXPECT_EQ(StatFraming::count(99999, context), u"99.999"_s);
    EXPECT_EQ(StatFraming::count(1250000, context), u"1.2M"_s);
}

TEST(FramingDuration, showsSecondsOnlyBelowAMinute) {
    const std::pair<double, std::string> rows[] = {
        {0, "0s"},         {59.9, "59s"},    {60, "1m"},       {119, "1m"},
        {120, "2m"},       {3599, "59m"},    {3599.99, "59m"}, {3600, "1h"},
        {3659, "1h"},      {3660, "1h 1m"},  {7199, "1h 59m"}, {7200, "2h"},
        {90061, "25h 1m"}, {360000, "100h"}, {-5.5, "-5s"},    {-0.5, "0s"}};
    for (const auto &[seconds, text] : rows) {
        EXPECT_EQ(StatFraming::duration(seconds).toStdString(), text) << seconds;
    }
}

TEST(FramingDuration, countsMinutesInTheShortForm) {
    const std::pair<qint64, std::string> rows[] = {{-1, "-1m"}, {0, "0m"},        {59, "59m"},
                                                   {60, "1h"},  {61, "1h 1m"},    {119, "1h 59m"},
                                                   {120, "2h"}, {1439, "23h 59m"}};
    for (const auto &[minutes, text] : rows) {
        EXPECT_EQ(StatFraming::shortDuration(minutes).toStdString(), text) << minutes;
    }
}

TEST(FramingDurationDeathTest, endsTheProcessOnWhatIsNoTime) {
    EXPECT_DEATH(StatFraming::duration(nan), "no 64-bit integer");
    EXPECT_DEATH(StatFraming::duration(infinity), "no 64-bit integer");
    EXPECT_DEATH(StatFraming::duration(1e19), "no 64-bit integer");
    EXPECT_DEATH(StatFraming::uptime(nan), "no 64-bit integer");
}

using FramingClockTime = Framing;

TEST_F(FramingClockTime, isTheTwelveHourFormInLowerCase) {
    const auto at = [this](const char *iso) {
        return StatFraming::clockTime(dateOf(iso), context).toStdString();
    };
    EXPECT_EQ(at("2024-03-05T15:07:00+01:00"), "3:07 pm");
    EXPECT_EQ(at("2024-03-05T00:00:59+01:00"), "12:00 am");
    EXPECT_EQ(at("2024-03-05T12:30:00+01:00"), "12:30 pm");
    EXPECT_EQ(at("2024-07-05T11:59:59+02:00"), "11:59 am");
}

TEST_F(FramingClockTime, ignoresTheChoiceOfA24HourClock) {
    preferences.setUse24HourClock(true);
    EXPECT_EQ(StatFraming::clockTime(dateOf("2024-03-05T15:07:00+01:00"), context), u"3:07 pm"_s);
}

class FramingDistance : public Framing {
protected:
    std::string distance(double meters) const {
        return StatFraming::distance(meters, context).toStdString();
    }
    std::string kilometers(double value) const {
        return StatFraming::kilometers(value, context).toStdString();
    }
};

TEST_F(FramingDistance, isInMetresAndKilometres) {
    EXPECT_EQ(distance(0), "0m");
    EXPECT_EQ(distance(12.99), "12m");
    EXPECT_EQ(distance(999.99), "999m");
    EXPECT_EQ(distance(1000), "1.0km");
    EXPECT_EQ(distance(1250), "1.2km");
    EXPECT_EQ(distance(42195), "42.2km");
}

TEST_F(FramingDistance, isInFeetAndMiles) {
    useImperial();
    EXPECT_EQ(distance(0), "0ft");
    EXPECT_EQ(distance(10), "32ft");
    EXPECT_EQ(distance(1609.3), "5279ft");
    EXPECT_EQ(distance(1609.35), "1.0mi");
    EXPECT_EQ(distance(5000), "3.1mi");
}

TEST_F(FramingDistance, groupsKilometresAlwaysInTheUsersWay) {
    EXPECT_EQ(kilometers(417.5), "418 km");
    EXPECT_EQ(kilometers(417.49), "417 km");
    EXPECT_EQ(kilometers(12345.4), "12.345 km");
    EXPECT_EQ(kilometers(0), "0 km");
    useSystemNumbers();
    EXPECT_EQ(kilometers(12345.4), "12.345 km");
}

TEST_F(FramingDistance, turnsKilometresIntoMiles) {
    useImperial();
    EXPECT_EQ(kilometers(417), "259 mi");
    EXPECT_EQ(kilometers(12345), "7.671 mi");
    EXPECT_EQ(kilometers(0.8), "0 mi");
    EXPECT_EQ(kilometers(0.81), "1 mi");
}

using FramingDistanceDeathTest = FramingDistance;

TEST_F(FramingDistanceDeathTest, endsTheProcessOnWhatIsNoDistance) {
    EXPECT_DEATH(distance(nan), "not finite");
    EXPECT_DEATH(distance(infinity), "not finite");
    EXPECT_DEATH(kilometers(infinity), "no 64-bit integer");
    useImperial();
    EXPECT_DEATH(distance(nan), "not finite");
    EXPECT_DEATH(kilometers(nan), "no 64-bit integer");
}

} // namespace zeph
