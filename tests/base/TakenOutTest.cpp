// SPDX-License-Identifier: MIT
#include "base/TakenOut.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

struct Bead {
    QUuid id;
    int size = 1;
    bool operator==(const Bead &) const = default;
};

const Bead red{QUuid::createUuid()};
const Bead green{QUuid::createUuid()};
const Bead blue{QUuid::createUuid()};

std::vector<Bead> string() {
    return {red, green, blue};
}

} // namespace

TEST(TakenOut, comesBackWhereItStood) {
    for (const Bead &bead : string()) {
        auto beads = string();
        auto taken = takeOut(beads, bead.id);
        ASSERT_TRUE(taken);
        EXPECT_EQ(beads.size(), 2U);
        EXPECT_EQ(placeOf(beads, bead.id), beads.end());
        putBack(beads, *taken);
        EXPECT_EQ(beads, string());
    }
}

TEST(TakenOut, severalComeBackInAnyOrder) {
    for (const bool lastFirst : {false, true}) {
        auto beads = string();
        const auto first = takeOut(beads, red.id);
        const auto second = takeOut(beads, green.id);
        ASSERT_TRUE(first && second);
        putBack(beads, lastFirst ? *second : *first);
        putBack(beads, lastFirst ? *first : *second);
        EXPECT_EQ(beads, string());
    }
}

TEST(TakenOut, standsLastInAListThatHasShrunk) {
    auto beads = string();
    const auto last = takeOut(beads, blue.id);
    ASSERT_TRUE(last);
    beads = {red};
    putBack(beads, *last);
    EXPECT_EQ(beads, (std::vector{red, blue}));
}

TEST(TakenOut, isNothingUnderAnotherId) {
    auto beads = string();
    EXPECT_EQ(takeOut(beads, QUuid::createUuid()), std::nullopt);
    EXPECT_EQ(beads, string());
}

TEST(TakenOut, othersOfItsIdDoNotComeBackWithIt) {
    const Bead twin{red.id, 2};
    std::vector<Bead> beads{red, green, twin};
    const auto taken = takeOut(beads, red.id);
    ASSERT_TRUE(taken);
    EXPECT_EQ(beads, std::vector{green});
    putBack(beads, *taken);
    EXPECT_EQ(beads, (std::vector{red, green}));
}

TEST(TakenOut, comesBackBeforeWhatStoodBehindAllOfItsId) {
    const Bead twin{red.id, 2};
    std::vector<Bead> beads{red, twin, green};
    const auto taken = takeOut(beads, red.id);
    ASSERT_TRUE(taken);
    beads.insert(beads.begin(), blue);
    putBack(beads, *taken);
    EXPECT_EQ(beads, (std::vector{blue, red, green}));
}

} // namespace zeph
