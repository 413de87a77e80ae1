// SPDX-License-Identifier: MIT
#include "drawing/scene/Damage.h"

#include "drawing/scene/ItemBounds.h"
#include "drawing/scene/SameLook.h"
#include "support/FixedTextMetrics.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class Damage : public testing::Test {
protected:
    static DrawItem square(double x, double y, const Color &color = Color::white()) {
        return ShapeItem{QRectF(x, y, 10, 10), 2, Fill{color, {}}, {}};
    }
    static DrawItem line(const QString &text, double x, double y) {
        TextStyle style;
        style.font.size = 10;
        return TextItem{text, style, QPointF(x, y)};
    }
    static Scene scene(std::vector<DrawItem> items) {
        return {AmbientBackground::still(Palette::forMood(0, FocusState::off)), std::move(items)};
    }
    QRegion between(const Scene &before, const Scene &after, double scale = 1) const {
        return damage(before, after, {QSize(800, 600), scale}, metrics);
    }

    FixedTextMetrics metrics;
};

const QRect whole(0, 0, 800, 600);

} // namespace

TEST_F(Damage, equalScenesHaveNone) {
    const Scene one = scene({square(0, 0), line(u"a"_s, 50, 50)});
    EXPECT_TRUE(between(one, one).isEmpty());
    EXPECT_TRUE(between({}, {}).isEmpty());
}

TEST_F(Damage, addedRemovedAndChangedItemsDamageTheirBounds) {
    const Scene one = scene({square(0, 0), square(100, 100)});
    EXPECT_EQ(between(one, scene({square(0, 0)})), QRegion(100, 100, 10, 10));
    EXPECT_EQ(between(scene({square(0, 0)}), one), QRegion(100, 100, 10, 10));
    EXPECT_EQ(between(one, scene({square(0, 0), square(200, 100)})),
              QRegion(100, 100, 10, 10) + QRegion(200, 100, 10, 10));
}

TEST_F(Damage, anItemInsertedBeforeOthersDamagesItselfAlone) {
    const Scene one = scene({square(0, 0), square(20, 0), square(40, 0)});
    const Scene other = scene({square(0, 0), square(300, 300), square(20, 0), square(40, 0)});
    EXPECT_EQ(between(one, other), QRegion(300, 300, 10, 10));
}

TEST_F(Damage, equalItemsAreRecognisedBetweenChangedNeighbours) {
    const Scene one = scene({square(0, 0), square(100, 0), square(200, 0)});
    const Scene other = scene({square(0, 50), square(100, 0), square(200, 50)});
    EXPECT_FALSE(between(one, other).intersects(QRect(100, 0, 10, 10)));
    EXPECT_TRUE(between(one, other).contains(QRect(200, 50, 10, 10)));
}

TEST_F(Damage, itemsThatChangePlacesAreDamagedSinceTheyMayOverlap) {
    const DrawItem red = square(0, 0, {1, 0, 0, 1});
    const DrawItem blue = square(5, 5, {0, 0, 1, 1});
    EXPECT_TRUE(between(scene({red, blue}), scene({blue, red})).intersects(QRect(5, 5, 5, 5)));
}

TEST_F(Damage, anotherBackdropDamagesEverything) {
    Scene other = scene({square(0, 0)});
    other.backdrop->accent = {0.9, 0.1, 0.1, 1};
    EXPECT_EQ(between(scene({square(0, 0)}), other), QRegion(whole));
    other.backdrop.reset();
    EXPECT_EQ(between(scene({square(0, 0)}), other), QRegion(whole));
}

TEST_F(Damage, coloursCountByTheEightBitValueTheyBecome) {
    Scene drifted = scene({square(0, 0, {0.5001, 0, 0, 1})});
    drifted.backdrop->top.red += 0.0001;
    EXPECT_TRUE(between(scene({square(0, 0, {0.5, 0, 0, 1})}), drifted).isEmpty());
    EXPECT_FALSE(between(scene({square(0, 0, {0.51, 0, 0, 1})}), drifted).isEmpty());
}

TEST_F(Damage, leavesOutWhatLiesOutsideOfTheSurface) {
    EXPECT_TRUE(between(scene({}), scene({square(900, 10), square(-50, 10)})).isEmpty());
    EXPECT_EQ(between(scene({}), scene({square(-5, -5)})), QRegion(0, 0, 5, 5));
}

TEST_F(Damage, isInDevicePixelsAndTakesPartlyCoveredOnes) {
    EXPECT_EQ(between(scene({}), scene({square(1, 1)}), 1.5), QRegion(QRect(1, 1, 16, 16)));
}

TEST_F(Damage, ofTextTakesInOverhangAndShadow) {
    const QRect plain = between(scene({}), scene({line(u"ab"_s, 100, 100)})).boundingRect();
    EXPECT_TRUE(plain.contains(QRect(98, 98, 24, 16)));
    EXPECT_LT(plain.width(), 40);
    auto shadowed = std::get<TextItem>(line(u"ab"_s, 100, 100));
    shadowed.style.shadow = TextShadow{Color::black(0.25), 12, 4};
    const QRect blurred = between(scene({}), scene({shadowed})).boundingRect();
    EXPECT_TRUE(blurred.contains(plain.translated(0, 4).adjusted(-18, -18, 18, 18)));
}

TEST_F(Damage, ofHundredsOfItemsIsBoundedInRectangles) {
    std::vector<DrawItem> squares;
    for (int at = 0; at < 1500; ++at) {
        squares.push_back(square(12 * (at / 40), 12 * (at % 40)));
    }
    const QRegion region = between(scene({}), scene(squares));
    EXPECT_LE(region.rectCount(), 600);
    EXPECT_TRUE(std::all_of(squares.begin(), squares.end(), [&](const DrawItem &item) {
        const QRect bounds = deviceBounds(item, 1, metrics) & whole;
        return (QRegion(bounds) - region).isEmpty();
    }));
}

TEST(SameLook, comparesEveryPartOfAnItem) {
    TextStyle style;
    style.shadow = TextShadow{Color::black(), 12, 4};
    const TextItem text{u"a"_s, style, QPointF(1, 2), 1};
    std::vector<DrawItem> variants(8, text);
    std::get<TextItem>(variants[1]).text = u"b"_s;
    std::get<TextItem>(variants[2]).origin = QPointF(1, 3);
    std::get<TextItem>(variants[3]).scale = 2;
    std::get<TextItem>(variants[4]).style.font.size = 18;
    std::get<TextItem>(variants[5]).style.color = Color::white();
    std::get<TextItem>(variants[6]).style.shadow.reset();
    std::get<TextItem>(variants[7]).style.shadow->radius = 11;
    const ShapeItem shape{QRectF(0, 0, 5, 5), 2, Fill{Color::white(), Color::black()}, {}};
    variants.insert(variants.end(), 6, shape);
    std::get<ShapeItem>(variants[9]).cornerRadius = 3;
    std::get<ShapeItem>(variants[10]).fill->end.reset();
    std::get<ShapeItem>(variants[11]).fill.reset();
    std::get<ShapeItem>(variants[12]).outline = Color::white();
    std::get<ShapeItem>(variants[13]).bar = QRectF(0, 0, 9, 5);
    const SymbolItem symbol{u"a"_s, Color::white(), QRectF(0, 0, 5, 5)};
    variants.insert(variants.end(), 2, symbol);
    std::get<SymbolItem>(variants[15]).identifier = u"b"_s;
    const ImageItem image{"bytes", QRectF(0, 0, 5, 5), 2};
    variants.insert(variants.end(), 2, image);
    std::get<ImageItem>(variants[17]).encoded = "bites";
    for (std::size_t one = 0; one < variants.size(); ++one) {
        for (std::size_t other = 0; other < variants.size(); ++other) {
            EXPECT_EQ(sameLook(variants[one], variants[other]), one == other) << one << other;
        }
        const DrawItem copy = variants[one];
        EXPECT_EQ(lookHash(copy), lookHash(variants[one]));
    }
}

} // namespace zeph
