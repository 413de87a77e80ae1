// SPDX-License-Identifier: MIT
#include "services/simple/FirstInt.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

std::optional<qint64> grouped(const QString &text, const QStringList &patterns) {
    return firstInt(text, patterns, Grouping::commas);
}

const QString number = uR"(n=([\d,]+))"_s;

} // namespace

TEST(FirstInt, takesTheFirstMatchInTheWholeText) {
    EXPECT_EQ(grouped(u"x\ny n=12 n=34"_s, {number}), 12);
}

TEST(FirstInt, isBlindToCase) {
    EXPECT_EQ(grouped(u"N=7"_s, {number}), 7);
}

TEST(FirstInt, triesThePatternsInTheirOrder) {
    EXPECT_EQ(grouped(u"n=1 m=2"_s, {uR"(m=(\d+))"_s, number}), 2);
    EXPECT_EQ(grouped(u"n=1"_s, {uR"(m=(\d+))"_s, number}), 1);
    EXPECT_EQ(grouped(u"k=1"_s, {uR"(m=(\d+))"_s, number}), std::nullopt);
}

TEST(FirstInt, removesCommasWhereNumbersAreGrouped) {
    EXPECT_EQ(grouped(u"n=1,234,567"_s, {number}), 1234567);
    EXPECT_EQ(grouped(u"n=1,,2,"_s, {number}), 12);
    EXPECT_EQ(firstInt(u"n=1,234"_s, {number}, Grouping::none), std::nullopt);
}

TEST(FirstInt, passesOverWhatIsNoPatternOrCatchesNothing) {
    EXPECT_EQ(grouped(u"n=5"_s, {u"n=("_s, u"n="_s, number}), 5);
}

TEST(FirstInt, passesOverWhatIsNoNumber) {
    EXPECT_EQ(grouped(u"n=, k=3"_s, {number, uR"(k=(\d+))"_s}), 3);
    EXPECT_EQ(grouped(u"n=99999999999999999999 k=3"_s, {number, uR"(k=(\d+))"_s}), 3);
    EXPECT_EQ(grouped(u"n=9223372036854775807"_s, {number}), 9223372036854775807);
    EXPECT_EQ(grouped(u"n=٣"_s, {number}), std::nullopt);
    EXPECT_EQ(grouped(u""_s, {number}), std::nullopt);
}

TEST(FirstInt, takesAnyUnicodeBlankForABlank) {
    EXPECT_EQ(grouped(u"12\u00A0fans"_s, {uR"((\d+)\s*fans)"_s}), 12);
}

} // namespace zeph
