// SPDX-License-Identifier: MIT
#include "adapters/session/x11/Strut.h"

#include <gtest/gtest.h>

#include <limits>
#include <ostream>
#include <string>

namespace zeph {

namespace {

using Numbers = std::vector<std::uint32_t>;

constexpr std::uint32_t kEndless = std::numeric_limits<std::uint32_t>::max();

const QRect kLarge(0, 0, 1920, 1080);
const QRect kSmallAtItsRight(1920, 0, 1280, 800);
const QRect kBeneath(0, 1080, 1920, 1200);
const QSize kAlone(1920, 1080);
const QSize kSideBySide(3200, 1080);
const QSize kStacked(1920, 2280);

struct StrutCase {
    const char *name;
    QRect monitor;
    QSize screen;
    std::vector<Numbers> partials; // one a window
    QMargins expected;
};

/// Without it the numbers in memory would stand in the name of the test.
void PrintTo(const StrutCase &strutCase, std::ostream *out) {
    *out << strutCase.name;
}

// Left, right, top, bottom; then first and last pixel of each.
const std::vector<StrutCase> kStrutCases{
    {"none", kLarge, kAlone, {}, {}},
    {"top", kLarge, kAlone, {{0, 0, 30, 0, 0, 0, 0, 0, 0, 1919, 0, 0}}, {0, 30, 0, 0}},
    {"left", kLarge, kAlone, {{64, 0, 0, 0, 0, 1079, 0, 0, 0, 0, 0, 0}}, {64, 0, 0, 0}},
    {"right", kLarge, kAlone, {{0, 64, 0, 0, 0, 0, 0, 1079, 0, 0, 0, 0}}, {0, 0, 64, 0}},
    {"bottom", kLarge, kAlone, {{0, 0, 0, 48, 0, 0, 0, 0, 0, 0, 400, 1500}}, {0, 0, 0, 48}},
    {"twoAtOneEdgeCountTheDeeper",
     kLarge,
     kAlone,
     {{0, 0, 30, 0, 0, 0, 0, 0, 0, 1919, 0, 0}, {0, 0, 50, 0, 0, 0, 0, 0, 0, 1919, 0, 0}},
     {0, 50, 0, 0}},
    {"topOfTheLargeOne",
     kLarge,
     kSideBySide,
     {{0, 0, 30, 0, 0, 0, 0, 0, 0, 1919, 0, 0}},
     {0, 30, 0, 0}},
    {"topOfTheOtherOne",
     kSmallAtItsRight,
     kSideBySide,
     {{0, 0, 30, 0, 0, 0, 0, 0, 0, 1919, 0, 0}},
     {}},
    {"bottomOfTheSmallOneReachesPastItsEnd",
     kSmallAtItsRight,
     kSideBySide,
     {{0, 0, 0, 310, 0, 0, 0, 0, 0, 0, 1920, 3199}},
     {0, 0, 0, 30}},
    {"bottomOfTheSmallOneIsNotThatOfTheLarge",
     kLarge,
     kSideBySide,
     {{0, 0, 0, 310, 0, 0, 0, 0, 0, 0, 1920, 3199}},
     {}},
    {"bottomOfTheLargeOneIsBeneathTheSmall",
     kSmallAtItsRight,
     kSideBySide,
     {{0, 0, 0, 48, 0, 0, 0, 0, 0, 0, 0, 3199}},
     {}},
    {"rightEdgeIsTheSmallOnes",
     kSmallAtItsRight,
     kSideBySide,
     {{0, 60, 0, 0, 0, 0, 0, 799, 0, 0, 0, 0}},
     {0, 0, 60, 0}},
    {"rightEdgeIsNotTheLargeOnes",
     kLarge,
     kSideBySide,
     {{0, 60, 0, 0, 0, 0, 0, 799, 0, 0, 0, 0}},
     {}},
    {"innerEdgeTakesFromTheMonitorItLiesOn",
     kSmallAtItsRight,
     kSideBySide,
     {{1970, 0, 0, 0, 0, 799, 0, 0, 0, 0, 0, 0}},
     {50, 0, 0, 0}},
    {"innerEdgeLeavesTheMonitorItLooksAcross",
     kLarge,
     kSideBySide,
     {{1970, 0, 0, 0, 0, 799, 0, 0, 0, 0, 0, 0}},
     {}},
    {"docksOnBothOfTheRight",
     kSmallAtItsRight,
     kSideBySide,
     {{0, 0, 30, 0, 0, 0, 0, 0, 0, 1919, 0, 0}, {0, 0, 20, 0, 0, 0, 0, 0, 1920, 3199, 0, 0}},
     {0, 20, 0, 0}},
    {"docksOnBothOfTheLeft",
     kLarge,
     kSideBySide,
     {{0, 0, 30, 0, 0, 0, 0, 0, 0, 1919, 0, 0}, {0, 0, 20, 0, 0, 0, 0, 0, 1920, 3199, 0, 0}},
     {0, 30, 0, 0}},
    {"stackedUpperOne", kLarge, kStacked, {{0, 0, 0, 48, 0, 0, 0, 0, 0, 0, 0, 1919}}, {}},
    {"stackedLowerOne",
     kBeneath,
     kStacked,
     {{0, 0, 0, 48, 0, 0, 0, 0, 0, 0, 0, 1919}},
     {0, 0, 0, 48}},
    {"stackedInnerEdgeAboveTheLowerOne",
     kLarge,
     kStacked,
     {{0, 0, 0, 1240, 0, 0, 0, 0, 0, 0, 0, 1919}},
     {0, 0, 0, 40}},
    {"stackedInnerEdgeAcrossTheLowerOne",
     kBeneath,
     kStacked,
     {{0, 0, 0, 1240, 0, 0, 0, 0, 0, 0, 0, 1919}},
     {}},
    {"wholeMonitor", kLarge, kAlone, {{0, 0, 1080, 0, 0, 0, 0, 0, 0, 1919, 0, 0}}, {}},
    {"halfAMonitor", kLarge, kAlone, {{0, 0, 540, 0, 0, 0, 0, 0, 0, 1919, 0, 0}}, {}},
    {"justLessThanHalf",
     kLarge,
     kAlone,
     {{0, 0, 539, 0, 0, 0, 0, 0, 0, 1919, 0, 0}},
     {0, 539, 0, 0}},
    {"beyondAllNumbers",
     kLarge,
     kAlone,
     {{kEndless, kEndless, kEndless, kEndless, 0, kEndless, 0, kEndless, 0, kEndless, 0, kEndless}},
     {}},
    {"endlessRange", kLarge, kAlone, {{0, 0, 30, 0, 0, 0, 0, 0, 0, kEndless, 0, 0}}, {0, 30, 0, 0}},
    {"rangeBackwards", kLarge, kAlone, {{0, 0, 30, 0, 0, 0, 0, 0, 1919, 0, 0, 0}}, {}},
};

class StrutTable : public testing::TestWithParam<StrutCase> {};

} // namespace

TEST_P(StrutTable, takesFromTheMonitorWhatLiesOnIt) {
    const StrutCase &one = GetParam();
    std::vector<Strut> struts;
    for (const Numbers &partial : one.partials) {
        const auto own = strutsIn(partial, {});
        struts.insert(struts.end(), own.begin(), own.end());
    }
    EXPECT_EQ(reservedMargins(one.monitor, one.screen, struts), one.expected);
}

INSTANTIATE_TEST_SUITE_P(Struts, StrutTable, testing::ValuesIn(kStrutCases),
                         [](const auto &one) { return std::string(one.param.name); });

TEST(Strut, withoutRangesSpansTheWholeEdge) {
    const auto struts = strutsIn({}, {0, 0, 0, 48});
    EXPECT_EQ(reservedMargins(kLarge, kSideBySide, struts), QMargins(0, 0, 0, 48));
    EXPECT_EQ(reservedMargins(kSmallAtItsRight, kSideBySide, struts), QMargins())
        << "it ends above the strut";
}

TEST(Strut, withRangesGoesBeforeTheOneWithout) {
    const auto struts = strutsIn({0, 0, 30, 0, 0, 0, 0, 0, 0, 1919, 0, 0}, {0, 0, 99, 0});
    EXPECT_EQ(struts, (std::vector<Strut>{{Qt::TopEdge, 30, 0, 1919}}));
}

TEST(Strut, withTooFewNumbersIsNone) {
    EXPECT_TRUE(strutsIn({}, {}).empty());
    EXPECT_TRUE(strutsIn({}, {0, 0, 30}).empty());
    EXPECT_TRUE(strutsIn({0, 0, 30, 0, 0, 0, 0, 0, 0, 1919, 0}, {}).empty());
    EXPECT_EQ(strutsIn({0, 0, 30, 0, 0, 0, 0, 0, 0, 1919, 0}, {0, 0, 30, 0}).size(), 1U)
        << "then the one without ranges counts";
    EXPECT_TRUE(strutsIn({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, {}).empty());
}

} // namespace zeph
