// SPDX-License-Identifier: MIT
#include "wording/Rounding.h"

#include <gmock/gmock.h>

#include <clocale>
#include <limits>
#include <string>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(Rounding, cutsTowardZero) {
    EXPECT_EQ(truncated(59.9), 59);
    EXPECT_EQ(truncated(-59.9), -59);
    EXPECT_EQ(truncated(-9223372036854775808.0), std::numeric_limits<qint64>::min());
}

TEST(Rounding, roundsHalvesAwayFromZero) {
    EXPECT_EQ(rounded(0.5), 1);
    EXPECT_EQ(rounded(2.5), 3);
    EXPECT_EQ(rounded(-0.5), -1);
    EXPECT_EQ(rounded(0.49999999999999994), 0);
}

TEST(Rounding, writesOneDecimalAsPrintfDoes) {
    EXPECT_EQ(oneDecimal(1.25), u"1.2"_s); // an exact tie goes to the even digit
    EXPECT_EQ(oneDecimal(1.75), u"1.8"_s);
    EXPECT_EQ(oneDecimal(9.96), u"10.0"_s);
    EXPECT_EQ(oneDecimal(0.04), u"0.0"_s);
    EXPECT_EQ(oneDecimal(-1.06), u"-1.1"_s);
    EXPECT_EQ(oneDecimal(1e300).size(), 303);
}

TEST(Rounding, writesAPointWhateverTheLocaleOfTheProcess) {
    const std::string former = std::setlocale(LC_ALL, nullptr);
    // Where the comma locale is not installed this changes nothing, and the result is the same.
    std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
    EXPECT_EQ(oneDecimal(1.5), u"1.5"_s);
    std::setlocale(LC_ALL, former.c_str());
}

TEST(RoundingDeathTest, endsTheProcessOnWhatIsNoInteger) {
    EXPECT_DEATH(truncated(std::numeric_limits<double>::quiet_NaN()), "no 64-bit integer");
    EXPECT_DEATH(truncated(std::numeric_limits<double>::infinity()), "no 64-bit integer");
    EXPECT_DEATH(truncated(9223372036854775808.0), "no 64-bit integer");
    EXPECT_DEATH(rounded(-1e300), "no 64-bit integer");
    EXPECT_DEATH(requireFinite(-std::numeric_limits<double>::infinity()), "not finite");
}

} // namespace zeph
