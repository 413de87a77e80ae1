// SPDX-License-Identifier: MIT
#include "base/Capitalized.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

TEST(Capitalized, raisesTheFirstLetterOfEachWord) {
    EXPECT_EQ(capitalized(u"bitcoin"_s), u"Bitcoin"_s);
    EXPECT_EQ(capitalized(u"wrapped-bitcoin"_s), u"Wrapped-Bitcoin"_s);
    EXPECT_EQ(capitalized(u"two  words"_s), u"Two  Words"_s);
}

TEST(Capitalized, lowersTheRest) {
    EXPECT_EQ(capitalized(u"PAUSED"_s), u"Paused"_s);
    EXPECT_EQ(capitalized(u"ROLLING_BACK"_s), u"Rolling_Back"_s);
}

TEST(Capitalized, takesAnApostropheForPartOfAWord) {
    EXPECT_EQ(capitalized(u"DON'T"_s), u"Don't"_s);
}

TEST(Capitalized, leavesNothingAsNothing) {
    EXPECT_EQ(capitalized(QString()), QString());
}

} // namespace zeph
