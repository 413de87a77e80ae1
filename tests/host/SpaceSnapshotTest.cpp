// SPDX-License-Identifier: MIT
#include "host/SpaceSnapshot.h"

#include "support/FakeVirtualDesktops.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace zeph {

namespace {

std::vector<quint64> idsOf(const std::vector<DesktopSpace> &desktops) {
    std::vector<quint64> ids;
    for (const DesktopSpace &desktop : desktops) {
        ids.push_back(desktop.id);
    }
    return ids;
}

TEST(SpaceSnapshot, isEmptyOnADesktopWithoutWorkspaces) {
    EXPECT_EQ(snapshotOf({}), SpaceSnapshot());
    EXPECT_EQ(snapshotOf({display(0, std::nullopt)}), SpaceSnapshot());
}

TEST(SpaceSnapshot, countsTheWorkspacesOfEachDisplayFromOneOn) {
    const SpaceSnapshot snapshot =
        snapshotOf({display(2, 12, u"A"_s, 11), display(2, 21, u"B"_s, 21)});
    EXPECT_THAT(
        snapshot.desktops,
        ElementsAre(DesktopSpace{.id = 11, .index = 1, .displayID = u"A"_s},
                    DesktopSpace{.id = 12, .index = 2, .displayID = u"A"_s, .isCurrent = true},
                    DesktopSpace{.id = 21, .index = 1, .displayID = u"B"_s, .isCurrent = true},
                    DesktopSpace{.id = 22, .index = 2, .displayID = u"B"_s}));
    EXPECT_THAT(snapshot.everySpaceID, ElementsAre(11, 12, 21, 22));
    EXPECT_THAT(snapshot.activeByDisplay, ElementsAre(Pair(u"A"_s, 12), Pair(u"B"_s, 21)));
}

TEST(SpaceSnapshot, givesFullScreenWorkspacesNoNumber) {
    ManagedDisplay shared = display(3, 2);
    shared.spaces[1].isRegular = false;
    const SpaceSnapshot snapshot = snapshotOf({shared});
    EXPECT_THAT(snapshot.desktops,
                ElementsAre(DesktopSpace{.id = 1, .index = 1, .displayID = u"shared"_s},
                            DesktopSpace{.id = 3, .index = 2, .displayID = u"shared"_s}));
    EXPECT_THAT(snapshot.everySpaceID, ElementsAre(1, 2, 3));
    EXPECT_EQ(activeSpaceOn(std::nullopt, snapshot), 2U);
}

TEST(SpaceSnapshot, hasNoCurrentWorkspaceWhereNoneIsTold) {
    const SpaceSnapshot snapshot = snapshotOf({display(2, std::nullopt)});
    EXPECT_THAT(snapshot.activeByDisplay, IsEmpty());
    EXPECT_FALSE(snapshot.desktops[0].isCurrent);
    EXPECT_FALSE(snapshot.desktops[1].isCurrent);
    EXPECT_EQ(activeSpaceOn(u"A"_s, snapshot), std::nullopt);
}

TEST(SpaceSnapshot, keepsTheNames) {
    ManagedDisplay shared = display(1, 1);
    shared.spaces[0].name = u"Mail"_s;
    EXPECT_EQ(snapshotOf({shared}).desktops[0].name, u"Mail"_s);
}

TEST(SpaceSnapshot, findsWhatBelongsToADisplay) {
    const SpaceSnapshot snapshot =
        snapshotOf({display(2, 12, u"A"_s, 11), display(1, 21, u"B"_s, 21)});
    EXPECT_THAT(idsOf(desktopsOn(u"A"_s, snapshot)), ElementsAre(11, 12));
    EXPECT_EQ(activeSpaceOn(u"B"_s, snapshot), 21U);
}

TEST(SpaceSnapshot, countsAllOfThemForADisplayThatIsNotListed) {
    const SpaceSnapshot snapshot =
        snapshotOf({display(2, 12, u"A"_s, 11), display(1, 21, u"B"_s, 21)});
    for (const auto &unknown : {std::optional(u"C"_s), std::optional<QString>()}) {
        EXPECT_THAT(idsOf(desktopsOn(unknown, snapshot)), ElementsAre(11, 12, 21));
        EXPECT_EQ(activeSpaceOn(unknown, snapshot), 12U) << "the first in order";
    }
}

} // namespace

} // namespace zeph
