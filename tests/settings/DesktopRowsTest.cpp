// SPDX-License-Identifier: MIT
#include "settings/DesktopRows.h"

#include "settings/PreferencesFixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

namespace {

const std::vector<VirtualDesktop> threeDesktops = {
    {1, u"Mail"_s, false}, {2, {}, true}, {3, {}, false}};

TEST(DesktopRows, areTheRowOfAllAndOneAWorkspace) {
    EXPECT_THAT(desktopRows(AllDesktops{}, threeDesktops),
                ElementsAre(DesktopRow{std::nullopt, u"All desktops"_s, u"3 desktops"_s, true},
                            DesktopRow{1, u"Desktop 1"_s, {}, false},
                            DesktopRow{2, u"Desktop 2"_s, u"current"_s, false},
                            DesktopRow{3, u"Desktop 3"_s, {}, false}));
}

TEST(DesktopRows, areMarkedWhereChosen) {
    const auto rows = desktopRows(SomeDesktops{{1, 3}}, threeDesktops);
    std::vector<bool> marks;
    for (const DesktopRow &row : rows) {
        marks.push_back(row.isChosen);
    }
    EXPECT_EQ(marks, (std::vector{false, true, false, true}));
    EXPECT_TRUE(desktopRows(SomeDesktops{}, threeDesktops).front().isChosen)
        << "an empty choice means all";
}

TEST(DesktopRows, areNoneWithoutAChoice) {
    EXPECT_THAT(desktopRows(AllDesktops{}, {}), IsEmpty());
    EXPECT_THAT(desktopRows(SomeDesktops{{1}}, {{1, {}, true}}), IsEmpty());
}

TEST(DesktopToggle, startsAChoiceOfOneAfterAll) {
    EXPECT_EQ(toggled(AllDesktops{}, 2), DesktopSelection(SomeDesktops{{2}}));
    EXPECT_EQ(toggled(SomeDesktops{}, 2), DesktopSelection(SomeDesktops{{2}}));
}

TEST(DesktopToggle, addsAndTakesAway) {
    EXPECT_EQ(toggled(SomeDesktops{{2}}, 1), DesktopSelection(SomeDesktops{{1, 2}}));
    EXPECT_EQ(toggled(SomeDesktops{{1, 2}}, 2), DesktopSelection(SomeDesktops{{1}}));
}

TEST(DesktopToggle, keepsTheLastChosenOne) {
    EXPECT_EQ(toggled(SomeDesktops{{2}}, 2), DesktopSelection(SomeDesktops{{2}}));
}

class DesktopToggleStored : public PreferencesFixture {};

TEST_F(DesktopToggleStored, isStoredAndTold) {
    toggleDesktop(2, prefs());
    toggleDesktop(3, prefs());
    EXPECT_EQ(relaunched().desktopSelection(), DesktopSelection(SomeDesktops{{2, 3}}));
    EXPECT_EQ(posted, QStringList(2, notifications::zephDesktopSelectionChanged));
}

TEST_F(DesktopToggleStored, isNotToldWhenTheLastOneStays) {
    toggleDesktop(2, prefs());
    posted.clear();
    const int writes = defaults.writes;
    toggleDesktop(2, prefs());
    EXPECT_THAT(posted, IsEmpty());
    EXPECT_EQ(defaults.writes, writes);
}

} // namespace

} // namespace zeph
