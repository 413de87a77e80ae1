// SPDX-License-Identifier: MIT
#include "base/WholeNumber.h"

#include <QString>

#include <gtest/gtest.h>

namespace zeph {

TEST(WholeNumber, isDigitsWithASignOrWithoutOne) {
    EXPECT_EQ(wholeNumber(u"0"), 0);
    EXPECT_EQ(wholeNumber(u"+01"), 1);
    EXPECT_EQ(wholeNumber(u"-12"), -12);
    EXPECT_EQ(wholeNumber(u"9223372036854775807"), 9223372036854775807LL);
}

TEST(WholeNumber, isNothingElse) {
    for (const auto *text : {u"", u"-", u"+", u"--1", u" 1", u"1 ", u"1.0", u"1e3", u"x", u"٣",
                             u"9223372036854775808"}) {
        EXPECT_EQ(wholeNumber(text), std::nullopt) << QString::fromUtf16(text).toStdString();
    }
}

TEST(WholeNumber, digitsAreThoseOfASCII) {
    EXPECT_TRUE(hasOnlyDigits(u"0123456789"));
    EXPECT_TRUE(hasOnlyDigits(u""));
    EXPECT_FALSE(hasOnlyDigits(u"-1"));
    EXPECT_FALSE(hasOnlyDigits(u"1٣"));
}

} // namespace zeph
