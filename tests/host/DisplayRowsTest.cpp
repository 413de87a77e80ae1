// SPDX-License-Identifier: MIT
#include "host/DisplayRows.h"

#include "support/FakeScreens.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace zeph {

namespace {

Screen namedScreen(const QString &name, const QString &identity, QRect device) {
    Screen made;
    made.persistentID = identity;
    made.name = name;
    made.deviceFrame = device;
    return made;
}

class DisplayRowsTest : public testing::Test {
protected:
    DisplayRowsTest() {
        screens.screens = {namedScreen(u"Harbor 27"_s, u"HBR Harbor 27 1"_s, {0, 0, 3840, 2160}),
                           namedScreen({}, u"eDP-1"_s, {3840, 0, 1920, 1200})};
    }

    std::vector<bool> marks(const DisplaySelection &selection) const {
        std::vector<bool> marks;
        for (const DisplayRow &row : displayRows(selection, screens)) {
            marks.push_back(row.isChosen);
        }
        return marks;
    }

    FakeScreens screens;
};

TEST_F(DisplayRowsTest, areTheRowOfAllAndOneADisplayWithItsSizeInPixels) {
    EXPECT_THAT(
        displayRows(AllDisplays{}, screens),
        ElementsAre(DisplayRow{AllDisplays{}, u"All displays"_s, u"2 monitors"_s, true},
                    DisplayRow{OneScreen{u"HBR Harbor 27 1"_s}, u"Harbor 27"_s, u"3840 × 2160"_s},
                    DisplayRow{OneScreen{u"eDP-1"_s}, u"Display 2"_s, u"1920 × 1200"_s}));
}

TEST_F(DisplayRowsTest, aDisplayWithoutAnIdentityIsWrittenByItsNumber) {
    screens.screens = {namedScreen(u"Harbor 27"_s, {}, {0, 0, 3840, 2160})};
    screens.screens.front().persistentID.reset();
    screens.screens.front().displayID = 77;
    EXPECT_EQ(displayRows(AllDisplays{}, screens).back().selection,
              DisplaySelection(OneScreen{u"77"_s}));
}

TEST_F(DisplayRowsTest, aChoiceMarksItsDisplayAlone) {
    EXPECT_EQ(marks(OneScreen{u"eDP-1"_s}), (std::vector{false, false, true}));
}

TEST_F(DisplayRowsTest, aChoiceThatIsWrittenInAFormerWayMarksTheSameDisplayAsIsChosen) {
    EXPECT_EQ(marks(OneScreen{u"Harbor Works Harbor 27 1"_s}), (std::vector{false, true, false}));
}

TEST_F(DisplayRowsTest, whileTheChosenOneIsUnpluggedNoneIsMarked) {
    EXPECT_EQ(marks(OneScreen{u"another"_s}), (std::vector{false, false, false}));
}

TEST_F(DisplayRowsTest, aLoneDisplayIsOneMonitor) {
    screens.screens.pop_back();
    EXPECT_EQ(displayRows(AllDisplays{}, screens).front().detail, u"1 monitor"_s);
    screens.screens.clear();
    EXPECT_EQ(displayRows(AllDisplays{}, screens).front().detail, u"0 monitors"_s);
}

} // namespace

} // namespace zeph
