// SPDX-License-Identifier: MIT
#include "drawing/painting/SymbolLibrary.h"

#include "drawing/painting/Blur.h"
#include "drawing/painting/PaintingFixture.h"
#include "drawing/scene/ItemBounds.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

int coverage(const QImage &mask, int x, int y) {
    return mask.constScanLine(y)[x];
}

int sum(const QImage &mask) {
    int total = 0;
    for (int y = 0; y < mask.height(); ++y) {
        for (int x = 0; x < mask.width(); ++x) {
            total += coverage(mask, x, y);
        }
    }
    return total;
}

} // namespace

using SymbolLibraryTest = PaintingFixture;

TEST_F(SymbolLibraryTest, drawsItsFileAtTheSizeAskedFor) {
    for (const int pixels : {12, 15, 48, 120}) {
        const QImage mask = symbols.mask(u"sun.max"_s, pixels);
        EXPECT_EQ(mask.size(), QSize(pixels, pixels));
        EXPECT_EQ(mask.format(), QImage::Format_Alpha8);
        EXPECT_EQ(coverage(mask, pixels / 2, pixels / 2), 255);
        EXPECT_EQ(coverage(mask, 0, 0), 0);
        const double area = 3.14159 / 9 * pixels * pixels; // a disc of a third of the side
        EXPECT_NEAR(sum(mask) / 255.0, area, 0.04 * area);
    }
}

TEST_F(SymbolLibraryTest, thinnerStrokesCoverLess) {
    const QImage usual = symbols.mask(u"no.such"_s, 48);
    const QImage thin = symbols.mask(u"no.such"_s, 48, 0.8);
    EXPECT_NEAR(sum(thin), sum(usual) * 0.8 / SymbolLibrary::usualStroke, 0.05 * sum(usual));
    EXPECT_EQ(symbols.mask(u"no.such"_s, 48), usual) << "each width is kept by itself";
}

TEST_F(SymbolLibraryTest, unknownSymbolIsARing) {
    EXPECT_FALSE(symbols.contains(u"no.such"_s));
    const QImage mask = symbols.mask(u"no.such"_s, 24);
    EXPECT_EQ(coverage(mask, 12, 12), 0);
    EXPECT_EQ(coverage(mask, 0, 12), 0);
    EXPECT_GT(coverage(mask, 6, 12) + coverage(mask, 5, 12), 200);
    EXPECT_EQ(symbols.mask(QString(), 24), mask);
}

TEST_F(SymbolLibraryTest, identifiersCannotLeaveTheFolder) {
    const QString path = home.filePath(u"sun.max"_s);
    EXPECT_FALSE(symbols.contains(path));
    EXPECT_FALSE(symbols.contains(u"../"_s + home.path().section(u'/', -1) + u"/sun.max"_s));
    EXPECT_TRUE(symbols.contains(u"sun.max"_s));
}

TEST_F(SymbolLibraryTest, fileThatIsNoDrawingIsARing) {
    QFile file(home.filePath(u"broken.svg"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("<svg");
    file.close();
    EXPECT_EQ(symbols.mask(u"broken"_s, 24), symbols.mask(u"no.such"_s, 24));
}

TEST(Blur, keepsTheInkAndStaysWithinItsReach) {
    const double radius = 12;
    const int reach = blurReach(radius);
    QImage mask(2 * reach + 21, 2 * reach + 21, QImage::Format_Alpha8);
    mask.fill(0);
    for (int y = reach; y < reach + 21; ++y) {
        std::fill_n(mask.scanLine(y) + reach, 21, uchar{255});
    }
    const QImage soft = blurred(mask, radius);
    ASSERT_EQ(soft.size(), mask.size());
    EXPECT_NEAR(sum(soft), sum(mask), 0.02 * sum(mask));
    for (int at = 0; at < soft.width(); ++at) {
        EXPECT_EQ(coverage(soft, at, 0), 0);
        EXPECT_EQ(coverage(soft, 0, at), 0);
    }
    EXPECT_GT(coverage(soft, reach + 10, reach + 10), coverage(soft, reach, reach + 10));
    EXPECT_EQ(coverage(soft, 5, 12), coverage(soft, 12, 5)); // the same both ways
}

TEST(Blur, isCloseToABell) {
    const double radius = 12; // a deviation of 6
    QImage mask(81, 81, QImage::Format_Alpha8);
    mask.fill(0);
    for (int y = 0; y < 81; ++y) { // the edge of a half plane
        std::fill_n(mask.scanLine(y), 41, uchar{255});
    }
    const QImage soft = blurred(mask, radius);
    for (const int x : {28, 34, 40, 46, 52}) {
        const double expected = 255 * 0.5 * std::erfc((x - 40.5) / 6 / std::sqrt(2.0));
        EXPECT_NEAR(coverage(soft, x, 40), expected, 6) << x;
    }
}

TEST(Blur, withoutARadiusChangesNothing) {
    QImage mask(5, 5, QImage::Format_Alpha8);
    mask.fill(77);
    EXPECT_EQ(blurred(mask, 0), mask);
}

} // namespace zeph
