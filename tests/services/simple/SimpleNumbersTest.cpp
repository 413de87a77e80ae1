// SPDX-License-Identifier: MIT
#include "services/simple/SimpleNumbers.h"

#include "support/QtPrinters.h"

#include "base/DescribedError.h"
#include "services/web/Json.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

TEST(SimpleNumbers, usdToCentsRoundsHalvesAwayFromZero) {
    EXPECT_EQ(usdToCents(json::parse("12.345")), 1235);
    EXPECT_EQ(usdToCents(json::parse("0.125")), 13);
    EXPECT_EQ(usdToCents(json::parse("-0.125")), -13);
    EXPECT_EQ(usdToCents(json::parse("7")), 700);
}

TEST(SimpleNumbers, usdToCentsOfNoNumberIsNothing) {
    for (const char *value : {"\"7\"", "true", "null", "[7]", "{}"}) {
        EXPECT_EQ(usdToCents(json::parse(value)), std::nullopt) << value;
    }
    EXPECT_EQ(usdToCents(QJsonValue(QJsonValue::Undefined)), std::nullopt);
}

TEST(SimpleNumbers, intFromJSONCutsOffTowardsZero) {
    EXPECT_EQ(intFromJSON(json::parse("7")), 7);
    EXPECT_EQ(intFromJSON(json::parse("7.9")), 7);
    EXPECT_EQ(intFromJSON(json::parse("-7.9")), -7);
    EXPECT_EQ(intFromJSON(json::parse("9223372036854775807")), 9223372036854775807);
}

TEST(SimpleNumbers, intFromJSONOfNoNumberIsNothing) {
    for (const char *value : {"\"7\"", "true", "null", "[7]", "{}"}) {
        EXPECT_EQ(intFromJSON(json::parse(value)), std::nullopt) << value;
    }
}

TEST(SimpleNumbers, whatDoesNotFitIsNothing) {
    for (const char *value : {"1e300", "-1e300", "9223372036854775808", "1e19"}) {
        EXPECT_EQ(intFromJSON(json::parse(value)), std::nullopt) << value;
        EXPECT_EQ(usdToCents(json::parse(value)), std::nullopt) << value;
    }
}

TEST(SimpleNumbers, noAnswerHoldsAnInfiniteNumber) {
    EXPECT_THROW(json::parse("1e999"), DescribedError);
    EXPECT_THROW(json::parse("{\"usd\":-1e400}"), DescribedError);
}

TEST(SimpleNumbers, fixedDecimalsTakesExactTiesToTheEvenDigit) {
    EXPECT_EQ(fixedDecimals(0.5, 0), u"0"_s);
    EXPECT_EQ(fixedDecimals(1.5, 0), u"2"_s);
    EXPECT_EQ(fixedDecimals(0.125, 2), u"0.12"_s);
    EXPECT_EQ(fixedDecimals(-0.04, 1), u"-0.0"_s);
    EXPECT_EQ(fixedDecimals(1e308, 4).size(), 314);
}

} // namespace zeph
