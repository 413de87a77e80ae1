// SPDX-License-Identifier: MIT
#include "adapters/desktop/NemoLayout.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(NemoLayout, hasOtherWordsForTheSameIcons) {
    EXPECT_EQ(inOtherWords(u"'true::false'"_s), u"'true::false::'"_s);
    for (const auto &layout : {u"'true::false'"_s, u"'true::true'"_s, u"'false::true'"_s}) {
        EXPECT_NE(inOtherWords(layout), layout);
        EXPECT_EQ(inUsualWords(inOtherWords(layout).value_or(QString())), layout);
    }
}

TEST(NemoLayout, hasNoneForHiddenIconsAndForWhatItIsNot) {
    for (const auto &layout : {u"'false::false'"_s, u"'true::false::'"_s, u"''"_s, u"true"_s}) {
        EXPECT_EQ(inOtherWords(layout), std::nullopt);
    }
}

TEST(NemoLayout, isLeftAsItIsInUsualWords) {
    for (const auto &layout : {u"'true::true'"_s, u"'false::false'"_s, u"''"_s, u""_s}) {
        EXPECT_EQ(inUsualWords(layout), layout);
    }
}

} // namespace zeph
