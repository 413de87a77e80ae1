// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PatchBudget.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

using Rects = std::vector<QRect>;

/// One that has spent its first whole picture.
PatchBudget begun(QSize whole = {1000, 1000}) {
    PatchBudget budget(whole);
    EXPECT_EQ(budget.spend(QRect(0, 0, 1, 1)), Rects{});
    return budget;
}

} // namespace

TEST(PatchBudget, beginsWithAWholePicture) {
    PatchBudget budget({100, 100});
    EXPECT_EQ(budget.spend(QRect(0, 0, 1, 1)), Rects{});
    EXPECT_EQ(budget.spend(QRect(0, 0, 1, 1)), Rects{QRect(0, 0, 1, 1)});
}

TEST(PatchBudget, givesOnePartForWhatLiesTogether) {
    PatchBudget budget = begun();
    QRegion region(10, 10, 50, 20);
    region += QRect(10, 30, 40, 20);
    EXPECT_EQ(budget.spend(region), Rects{QRect(10, 10, 50, 40)});
}

TEST(PatchBudget, givesPartsForWhatLiesFarApart) {
    PatchBudget budget = begun();
    QRegion region(0, 0, 50, 20);
    region += QRect(900, 800, 50, 20);
    EXPECT_EQ(budget.spend(region), (Rects{QRect(0, 0, 50, 20), QRect(900, 800, 50, 20)}));
}

TEST(PatchBudget, givesOnePartForManySplinters) {
    PatchBudget budget = begun();
    QRegion region;
    for (int i = 0; i < 9; ++i) {
        region += QRect(i * 50, i * 50, 2, 2);
    }
    EXPECT_EQ(budget.spend(region), Rects{QRect(0, 0, 402, 402)});
}

TEST(PatchBudget, asksForAWholePictureAfterAsManyPartsAsCanLieOverIt) {
    PatchBudget budget = begun();
    for (int i = 0; i < PatchBudget::mostPatches; ++i) {
        ASSERT_EQ(budget.spend(QRect(0, 0, 2, 2)).size(), 1U) << i;
    }
    EXPECT_EQ(budget.spend(QRect(0, 0, 2, 2)), Rects{});
    EXPECT_EQ(budget.spend(QRect(0, 0, 2, 2)).size(), 1U) << "the count begins anew";
}

TEST(PatchBudget, asksForAWholePictureOncePartsAreMoreThanHalfOfIt) {
    PatchBudget budget = begun();
    EXPECT_EQ(budget.spend(QRect(0, 0, 1000, 250)).size(), 1U);
    EXPECT_EQ(budget.spend(QRect(0, 0, 1000, 250)).size(), 1U) << "just half";
    EXPECT_EQ(budget.spend(QRect(0, 0, 1, 1)), Rects{});
    EXPECT_EQ(budget.spend(QRect(0, 0, 1000, 501)), Rects{}) << "one that is too large by itself";
    EXPECT_EQ(budget.spend(QRect(0, 0, 1000, 500)).size(), 1U) << "the sum begins anew";
}

TEST(PatchBudget, canBeExhausted) {
    PatchBudget budget = begun();
    budget.exhaust();
    EXPECT_EQ(budget.spend(QRect(0, 0, 2, 2)), Rects{});
    EXPECT_EQ(budget.spend(QRect(0, 0, 2, 2)).size(), 1U);
}

TEST(PatchBudget, leavesOutWhatLiesBeside) {
    PatchBudget budget = begun({100, 100});
    EXPECT_EQ(budget.spend(QRect(90, 90, 50, 50)), Rects{QRect(90, 90, 10, 10)});
}

} // namespace zeph
