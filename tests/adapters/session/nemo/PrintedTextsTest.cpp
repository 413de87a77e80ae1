// SPDX-License-Identifier: MIT
#include "adapters/session/nemo/PrintedTexts.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QStringList kAwkward{uR"('a, b')"_s, uR"("it's")"_s, uR"('\'')"_s, uR"('\\')"_s, u"']'"_s};

} // namespace

TEST(PrintedTexts, areReadAsTheyStandThere) {
    EXPECT_EQ(printedTextsIn(u"['conky']"_s), QStringList{u"'conky'"_s});
    EXPECT_EQ(printedTextsIn(u"['conky', 'tavi']"_s), (QStringList{u"'conky'"_s, u"'tavi'"_s}));
    EXPECT_EQ(printedTextsIn(u"@as []"_s), QStringList());
}

TEST(PrintedTexts, surviveWhateverIsInThem) {
    EXPECT_EQ(printedTextsIn(listOfPrinted(kAwkward)), kAwkward);
    EXPECT_EQ(listOfPrinted({}), u"@as []"_s);
}

TEST(PrintedTexts, areNoneOfWhatIsNoList) {
    for (const auto &other : {u""_s, u"'conky'"_s, u"["_s, u"['conky'"_s, u"['conky]"_s,
                              u"['conky' 'tavi']"_s, u"[1, 2]"_s, u"['conky\\']"_s}) {
        EXPECT_EQ(printedTextsIn(other), std::nullopt) << qPrintable(other);
    }
}

} // namespace zeph
