// SPDX-License-Identifier: MIT
#include "adapters/session/gnome/ActiveObject.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using News = ActiveObject::News;

const AccessibleObject kEditor{u":1.1"_s, u"/window"_s};
const AccessibleObject kEditorToo{u":1.1"_s, u"/window/2"_s};
const AccessibleObject kCell{u":1.1"_s, u"/cell"_s};
const AccessibleObject kViewer{u":1.2"_s, u"/window"_s};
const AccessibleObject kViewerCell{u":1.2"_s, u"/cell"_s};

ActiveObject::Step asks(std::vector<AccessibleObject> objects) {
    return {News::none, std::move(objects)};
}

class ActiveObjectTest : public testing::Test {
protected:
    ActiveObjectTest() {
        EXPECT_EQ(active.told(kEditor, true), asks({kEditor}));
        EXPECT_EQ(active.answered(kEditor, true), News::gained);
    }

    ActiveObject active;
};

} // namespace

TEST(WindowRoleTest, framesAndDialogsAreWindowsAndCellsAreNot) {
    EXPECT_TRUE(isWindowRole(23));
    EXPECT_TRUE(isWindowRole(16));
    EXPECT_TRUE(isWindowRole(69));
    EXPECT_FALSE(isWindowRole(56));
    EXPECT_FALSE(isWindowRole(0));
}

TEST_F(ActiveObjectTest, theSameWindowSaysItTwice) {
    EXPECT_EQ(active.told(kEditor, true), ActiveObject::Step());
    EXPECT_EQ(active.sender(), u":1.1"_s);
}

TEST_F(ActiveObjectTest, aWindowOfAnotherProgramTakesOver) {
    EXPECT_EQ(active.told(kViewer, true), asks({kViewer}));
    EXPECT_EQ(active.told(kViewer, true), asks({})) << "asked already";
    EXPECT_EQ(active.answered(kViewer, true), News::gained);
    EXPECT_EQ(active.told(kEditor, false).news, News::none) << "late";
    EXPECT_EQ(active.sender(), u":1.2"_s);
}

TEST_F(ActiveObjectTest, theOneBeforeIsNotLostWhileItIsAskedWhoFollows) {
    active.told(kViewer, true);
    EXPECT_EQ(active.told(kEditor, false), asks({}));
    EXPECT_EQ(active.answered(kViewer, true), News::gained);
}

TEST_F(ActiveObjectTest, isLostWhereWhatFollowsIsNoWindow) {
    active.told(kViewerCell, true);
    active.told(kViewer, true);
    EXPECT_EQ(active.told(kEditor, false), asks({}));
    EXPECT_EQ(active.answered(kViewerCell, false), News::none);
    EXPECT_EQ(active.told(kViewer, false).news, News::lost) << "and that has been left too";
    EXPECT_EQ(active.answered(kViewer, true), News::none) << "too late";
    EXPECT_EQ(active.sender(), QString());
}

TEST_F(ActiveObjectTest, isLostWithoutASuccessor) {
    EXPECT_EQ(active.told(kEditor, false).news, News::lost);
    EXPECT_EQ(active.told(kEditor, false).news, News::none);
}

TEST_F(ActiveObjectTest, cellsOfTheProgramInFrontAreNotAskedAbout) {
    EXPECT_EQ(active.told(kCell, true), ActiveObject::Step());
    EXPECT_EQ(active.told(kCell, false), ActiveObject::Step());
    EXPECT_EQ(active.told(kEditor, false).news, News::lost);
}

TEST_F(ActiveObjectTest, theNextWindowOfTheSameProgramIsAskedForWhenItsFirstIsLeft) {
    active.told(kEditorToo, true);
    active.told(kCell, true);
    EXPECT_EQ(active.told(kEditor, false), asks({kEditorToo, kCell}));
    EXPECT_EQ(active.answered(kCell, false), News::none);
    EXPECT_EQ(active.answered(kEditorToo, true), News::none) << "the same program";
    EXPECT_EQ(active.told(kEditorToo, false).news, News::lost);
}

TEST_F(ActiveObjectTest, whatTellsWhileTheWindowIsLeftIsAskedAtOnce) {
    active.told(kCell, true);
    EXPECT_EQ(active.told(kEditor, false), asks({kCell}));
    EXPECT_EQ(active.told(kEditorToo, true), asks({kEditorToo}));
    EXPECT_EQ(active.answered(kCell, false), News::none);
    EXPECT_EQ(active.answered(kEditorToo, true), News::none);
    EXPECT_EQ(active.sender(), u":1.1"_s);
}

TEST_F(ActiveObjectTest, aWindowThatComesBackIsNotLost) {
    active.told(kCell, true);
    active.told(kEditor, false);
    EXPECT_EQ(active.told(kEditor, true), ActiveObject::Step());
    EXPECT_EQ(active.answered(kCell, false), News::none);
    EXPECT_EQ(active.told(kEditor, false).news, News::lost);
}

TEST_F(ActiveObjectTest, cellsThatGoWithoutAWordAreForgotten) {
    for (int row = 0; row < 100; ++row) {
        active.told({u":1.1"_s, u"/cell/%1"_s.arg(row)}, true);
    }
    EXPECT_LE(active.told(kEditor, false).questions.size(), 4U);
}

TEST_F(ActiveObjectTest, endsWithItsProgram) {
    EXPECT_EQ(active.ended(u":1.2"_s), News::none);
    EXPECT_EQ(active.ended(u":1.1"_s), News::lost);
    EXPECT_EQ(active.ended(u":1.1"_s), News::none);
}

TEST_F(ActiveObjectTest, isLostWhenTheProgramEndsThatWasAsked) {
    active.told(kViewer, true);
    active.told(kEditor, false);
    EXPECT_EQ(active.ended(u":1.2"_s), News::lost);
}

} // namespace zeph
