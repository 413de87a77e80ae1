// SPDX-License-Identifier: MIT
#include "host/SpaceMembership.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

namespace {

class SpaceMembershipTest : public testing::Test {
protected:
    std::optional<quint64> seenOn;
    std::vector<quint64> there{1, 2, 3, 4, 7, 9};
    SpaceMembership membership{[this](int surface) { return surface == 1 ? seenOn : std::nullopt; },
                               [this] { return there; }};
};

TEST_F(SpaceMembershipTest, aSurfaceIsOnThoseThatItWasAddedTo) {
    EXPECT_THAT(membership.spacesOf(1), IsEmpty());
    membership.add(1, {2, 3});
    membership.add(1, {4});
    membership.add(2, {9});
    membership.remove(1, {3, 9});
    EXPECT_THAT(membership.spacesOf(1), ElementsAre(2, 4));
    EXPECT_THAT(membership.spacesOf(2), ElementsAre(9));
}

TEST_F(SpaceMembershipTest, aSurfaceThatCanBeSeenIsOnThatWorkspaceWhateverWasAskedFor) {
    membership.add(1, {2});
    seenOn = 7;
    membership.remove(1, {7});
    EXPECT_THAT(membership.spacesOf(1), ElementsAre(2, 7));
    seenOn = std::nullopt;
    EXPECT_THAT(membership.spacesOf(1), ElementsAre(2));
}

TEST_F(SpaceMembershipTest, aSurfaceIsOnNoWorkspaceThatIsGone) {
    membership.add(1, {2, 3});
    there = {1, 2};
    EXPECT_THAT(membership.spacesOf(1), ElementsAre(2));
    there = {1, 2, 3};
    EXPECT_THAT(membership.spacesOf(1), ElementsAre(2, 3));
}

} // namespace

} // namespace zeph
