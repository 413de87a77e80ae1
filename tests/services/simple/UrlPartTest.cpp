// SPDX-License-Identifier: MIT
#include "services/simple/UrlPart.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

TEST(UrlPart, leavesPlainNamesAsTheyAre) {
    EXPECT_EQ(urlPart(u"Ada-1_2.b~c"_s), u"Ada-1_2.b~c"_s);
}

TEST(UrlPart, encodesAllThatCouldEndASegmentOrAValue) {
    EXPECT_EQ(urlPart(u"a/b?c#d&e=f+g h%i"_s), u"a%2Fb%3Fc%23d%26e%3Df%2Bg%20h%25i"_s);
    EXPECT_EQ(urlPart(u"é😀"_s), u"%C3%A9%F0%9F%98%80"_s);
}

TEST(UrlPart, hasNoneForHalfASurrogatePair) {
    EXPECT_EQ(urlPart(u"a"_s + QChar(0xD83D)), std::nullopt);
    EXPECT_EQ(urlPart(QChar(0xDE00) + u"a"_s), std::nullopt);
}

} // namespace zeph
