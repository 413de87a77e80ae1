// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class GoldenImage : public testing::Test {
protected:
    GoldenImage() : image(4, 4, QImage::Format_RGB32) { image.fill(qRgb(10, 20, 30)); }

    GoldenFolder folder(bool updates = false) const {
        return {home.filePath(u"expected"_s), home.filePath(u"output"_s), updates};
    }
    bool wrote(const QString &name) const {
        return QFile::exists(home.filePath(u"output/"_s + name));
    }
    void expectThisImage() { EXPECT_TRUE(matchesGolden(image, u"a"_s, {}, folder(true))); }

    QTemporaryDir home;
    QImage image;
};

} // namespace

TEST_F(GoldenImage, updatedPictureMatchesItself) {
    expectThisImage();
    EXPECT_TRUE(matchesGolden(image, u"a"_s, {0, 0}, folder()));
    EXPECT_FALSE(wrote(u"a.got.png"_s));
}

TEST_F(GoldenImage, updateLeavesAPictureThatStillMatches) {
    expectThisImage();
    QImage close = image;
    close.setPixel(1, 1, qRgb(11, 20, 30));
    EXPECT_TRUE(matchesGolden(close, u"a"_s, {2, 0}, folder(true)));
    EXPECT_TRUE(matchesGolden(image, u"a"_s, {0, 0}, folder()));
    close.setPixel(1, 1, qRgb(90, 20, 30));
    EXPECT_TRUE(matchesGolden(close, u"a"_s, {2, 0}, folder(true)));
    EXPECT_TRUE(matchesGolden(close, u"a"_s, {0, 0}, folder()));
}

TEST_F(GoldenImage, missingExpectationFailsAndShowsWhatWasDrawn) {
    EXPECT_FALSE(matchesGolden(image, u"a"_s, {}, folder()));
    EXPECT_TRUE(wrote(u"a.got.png"_s));
}

TEST_F(GoldenImage, differenceWithinTheToleranceMatches) {
    expectThisImage();
    image.fill(qRgb(12, 20, 30));
    EXPECT_TRUE(matchesGolden(image, u"a"_s, {2, 0}, folder()));
    EXPECT_FALSE(matchesGolden(image, u"a"_s, {1, 0}, folder()));
}

TEST_F(GoldenImage, asManyPixelsAsAllowedMayDiffer) {
    expectThisImage();
    image.setPixel(0, 0, qRgb(255, 255, 255));
    image.setPixel(1, 0, qRgb(255, 255, 255));
    EXPECT_TRUE(matchesGolden(image, u"a"_s, {0, 2}, folder()));
    EXPECT_FALSE(matchesGolden(image, u"a"_s, {0, 1}, folder()));
}

TEST_F(GoldenImage, mismatchWritesThreePicturesAndMarksTheDifference) {
    expectThisImage();
    image.setPixel(3, 2, qRgb(255, 255, 255));
    EXPECT_FALSE(matchesGolden(image, u"a"_s, {}, folder()));
    EXPECT_TRUE(wrote(u"a.got.png"_s));
    EXPECT_TRUE(wrote(u"a.expected.png"_s));
    const QImage difference(home.filePath(u"output/a.diff.png"_s));
    EXPECT_EQ(difference.pixel(3, 2), qRgb(255, 0, 0));
    EXPECT_NE(difference.pixel(0, 0), qRgb(255, 0, 0));
}

TEST_F(GoldenImage, anotherSizeNeverMatches) {
    expectThisImage();
    EXPECT_FALSE(matchesGolden(QImage(5, 4, QImage::Format_RGB32), u"a"_s, {255, 100}, folder()));
}

TEST_F(GoldenImage, inShadesOfGreyColoursDoNotCountAndLightDoes) {
    const GoldenOptions grey{.shades = 16};
    image.fill(qRgb(200, 0, 0));
    EXPECT_TRUE(matchesGolden(image, u"a"_s, grey, folder(true)));
    EXPECT_TRUE(QImage(home.filePath(u"expected/a.png"_s)).isGrayscale());
    const int light = qGray(qRgb(200, 0, 0));
    image.fill(qRgb(light, light, light));
    EXPECT_TRUE(matchesGolden(image, u"a"_s, grey, folder()));
    image.setPixel(2, 2, qRgb(light + 40, light + 40, light + 40));
    EXPECT_FALSE(matchesGolden(image, u"a"_s, grey, folder()));
}

} // namespace zeph
