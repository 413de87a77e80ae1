// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PictureNames.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(PictureNames, aFolderIsCalledAsItsConnector) {
    EXPECT_EQ(pictureFolderName(u"eDP-1"_s), u"eDP-1"_s);
    EXPECT_EQ(pictureFolderName(u"Virtual_2"_s), u"Virtual_2"_s);
}

TEST(PictureNames, aConnectorLeadsToNoOtherFolder) {
    EXPECT_EQ(pictureFolderName(u"../DP 1"_s), u"___DP_1"_s);
    EXPECT_EQ(pictureFolderName(u"Écran"_s), u"_cran"_s);
    EXPECT_EQ(pictureFolderName(QString()), u"_"_s);
}

TEST(PictureNames, theOrderOfNamesIsThatOfNumbers) {
    EXPECT_EQ(wholePictureName(7, false), u"f-000000000007.bmp"_s);
    EXPECT_EQ(wholePictureName(12, true), u"f-000000000012.png"_s);
    EXPECT_LT(patchName(9, {0, 0}), patchName(10, {0, 0}));
}

TEST(PictureNames, aPartTellsItsPlace) {
    EXPECT_EQ(patchName(8, {1200, 40}), u"p-000000000008-1200-40.bmp"_s);
}

TEST(PictureNames, theNumberIsReadBack) {
    EXPECT_EQ(pictureNumber(wholePictureName(7, false)), 7U);
    EXPECT_EQ(pictureNumber(wholePictureName(123456789012, true)), 123456789012U);
    EXPECT_EQ(pictureNumber(patchName(9, {3, 4})), 9U);
}

TEST(PictureNames, othersHaveNoNumber) {
    for (const QString &name : {u"holiday.png"_s, u"f-.bmp"_s, u"f-1.jpg"_s, u"p-1.bmp"_s,
                                u"xf-1.bmp"_s, u"p-1-2-3.png"_s, u"p-1--2-3.bmp"_s, QString()}) {
        EXPECT_EQ(pictureNumber(name), std::nullopt) << name.toStdString();
    }
}

} // namespace zeph
