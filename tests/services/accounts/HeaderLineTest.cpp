// SPDX-License-Identifier: MIT
#include "services/accounts/HeaderLine.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

TEST(HeaderLine, isSplitAtTheFirstColon) {
    EXPECT_EQ(parseHeader(u"a:b:c"_s), (HeaderLine{u"a"_s, u"b:c"_s}));
}

TEST(HeaderLine, losesTheBlanksAroundBothSides) {
    EXPECT_EQ(parseHeader(u" \tX-Key :  1\u00a0"_s), (HeaderLine{u"X-Key"_s, u"1"_s}));
}

TEST(HeaderLine, isNothingWithAnEmptySide) {
    EXPECT_EQ(parseHeader(u"X-Empty:"_s), std::nullopt);
    EXPECT_EQ(parseHeader(u"X-Empty: \t"_s), std::nullopt);
    EXPECT_EQ(parseHeader(u" : value"_s), std::nullopt);
}

TEST(HeaderLine, isNothingWithoutAColon) {
    EXPECT_EQ(parseHeader(u"Authorization Bearer"_s), std::nullopt);
    EXPECT_EQ(parseHeader(u""_s), std::nullopt);
}

} // namespace

} // namespace zeph
