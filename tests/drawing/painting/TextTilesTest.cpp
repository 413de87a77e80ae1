// SPDX-License-Identifier: MIT
#include "drawing/painting/TextTiles.h"

#include "drawing/painting/QtTextMetrics.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class TextTilesTest : public testing::Test {
protected:
    void draw(const QString &time, double scale = 1) {
        TextItem item{time, {}, QPointF(50, 50), 1};
        item.style.font.size = 84;
        item.style.font.weight = FontWeight::thin;
        item.style.font.evenDigits = true;
        item.style.shadow = TextShadow{Color::black(0.25), 12, 4};
        EXPECT_FALSE(tiles.tile(item, scale, QRect(0, 0, 900, 500)).pixels.isNull());
    }

    QtTextMetrics metrics;
    TextTiles tiles{metrics};
};

} // namespace

TEST_F(TextTilesTest, aDayOfMinutesKeepsAFewShadows) {
    for (int minute = 0; minute < 60; ++minute) {
        draw(u"10:%1"_s.arg(minute, 2, 10, QLatin1Char('0')));
        EXPECT_LE(tiles.keptBytes(), 192 << 10);
    }
    EXPECT_EQ(tiles.blurredShadows(), 60);
    EXPECT_GT(tiles.keptBytes(), 96 << 10) << "there is room for more than one";
    draw(u"10:59"_s);
    EXPECT_EQ(tiles.blurredShadows(), 60);
}

TEST_F(TextTilesTest, aShadowBeyondTheLimitIsKeptAlone) {
    draw(u"10:00"_s);
    draw(u"10:00"_s, 2.5);
    EXPECT_GT(tiles.keptBytes(), 192 << 10);
    draw(u"10:00"_s, 2.5);
    EXPECT_EQ(tiles.blurredShadows(), 2);
    draw(u"10:00"_s);
    EXPECT_EQ(tiles.blurredShadows(), 3);
    EXPECT_LE(tiles.keptBytes(), 192 << 10);
}

TEST_F(TextTilesTest, theShadowThatWasNotDrawnForTheLongestGoesFirst) {
    draw(u"10:00"_s);
    const int room = static_cast<int>((192 << 10) / tiles.keptBytes());
    ASSERT_GE(room, 2);
    for (int minute = 1; minute < room; ++minute) {
        draw(u"10:0%1"_s.arg(minute));
    }
    draw(u"10:00"_s);
    EXPECT_EQ(tiles.blurredShadows(), room);
    draw(u"20:00"_s); // one too many
    draw(u"10:00"_s);
    EXPECT_EQ(tiles.blurredShadows(), room + 1);
    draw(u"10:01"_s);
    EXPECT_EQ(tiles.blurredShadows(), room + 2);
}

} // namespace zeph
