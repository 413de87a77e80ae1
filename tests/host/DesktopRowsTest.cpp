// SPDX-License-Identifier: MIT
#include "host/DesktopRows.h"

#include "settings/PreferencesFixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace zeph {

namespace {

const std::vector<DesktopSpace> threeDesktops = {
    {.id = 11, .index = 1}, {.id = 12, .index = 2, .isCurrent = true}, {.id = 13, .index = 3}};

QString detailOfFirst(const std::vector<DesktopSpace> &desktops) {
    return desktopRows(AllDesktops{}, desktops).at(1).detail;
}

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
    EXPECT_THAT(desktopRows(SomeDesktops{{1}}, {{.id = 7, .isCurrent = true}}), IsEmpty());
    EXPECT_THAT(desktopRows(AllDesktops{},
                            {{.id = 7, .displayID = u"A"_s}, {.id = 8, .displayID = u"B"_s}}),
                IsEmpty())
        << "one on each of two displays";
}

TEST(DesktopRows, tellTheNamesThatSayMoreThanTheNumber) {
    const DesktopSpace other{.id = 12, .index = 2};
    EXPECT_EQ(detailOfFirst({{.id = 11, .name = u"Mail"_s}, other}), u"Mail"_s);
    EXPECT_EQ(detailOfFirst({{.id = 11, .name = u"Mail"_s, .isCurrent = true}, other}),
              u"Mail · current"_s);
    EXPECT_EQ(detailOfFirst({{.id = 11, .name = u"1: web"_s}, other}), u"1: web"_s);
    for (const auto &name : {u"1"_s, u" 1 "_s, u"Workspace 1"_s, u"Arbeitsfläche 1"_s}) {
        EXPECT_EQ(detailOfFirst({{.id = 11, .name = name}, other}), QString())
            << name.toStdString();
    }
    EXPECT_EQ(detailOfFirst({{.id = 11, .name = u"5"_s}, other}), u"5"_s)
        << "it is counted as the first and called the fifth";
}

TEST(DesktopRows, standForTheSameNumberOfEveryDisplay) {
    const std::vector<DesktopSpace> desktops = {
        {.id = 1, .index = 1, .displayID = u"A"_s, .name = u"web"_s},
        {.id = 2, .index = 2, .displayID = u"A"_s, .isCurrent = true},
        {.id = 3, .index = 1, .displayID = u"B"_s, .name = u"mail"_s, .isCurrent = true},
        {.id = 4, .index = 2, .displayID = u"B"_s}};
    EXPECT_THAT(desktopRows(SomeDesktops{{2}}, desktops),
                ElementsAre(DesktopRow{std::nullopt, u"All desktops"_s, u"2 desktops"_s, false},
                            DesktopRow{1, u"Desktop 1"_s, u"web, mail · current"_s, false},
                            DesktopRow{2, u"Desktop 2"_s, u"current"_s, true}));
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
