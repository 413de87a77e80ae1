// SPDX-License-Identifier: MIT
#include "support/WindowFixture.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/SizeChoice.h"

#include <QRadioButton>

namespace zeph::ui {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class SegmentedTest : public WindowFixture {
protected:
    SegmentedTest() {
        choice.onChosen = [this](int index) { calls.push_back(index); };
        open();
    }

    QRadioButton &segment(int index) { return *choice.findChildren<QRadioButton *>().at(index); }

    Segmented &choice = add(new Segmented({u"Solid"_s, u"Time of day"_s, u"Transparent"_s}));
    PillButton &after = add(new PillButton(u"After"_s));
    std::vector<int> calls;
};

} // namespace

TEST_F(SegmentedTest, aClickChoosesAndTells) {
    QTest::mouseClick(&segment(1), Qt::LeftButton);
    EXPECT_EQ(choice.chosen(), 1);
    EXPECT_EQ(calls, std::vector{1});
}

TEST_F(SegmentedTest, choosingFromOutsideTellsNobody) {
    choice.choose(2);
    EXPECT_EQ(choice.chosen(), 2);
    choice.choose(-1);
    EXPECT_EQ(choice.chosen(), -1);
    EXPECT_TRUE(calls.empty());
}

TEST_F(SegmentedTest, theArrowsChoose) {
    choice.choose(0);
    choice.setFocus(Qt::TabFocusReason);
    ASSERT_TRUE(segment(0).hasFocus());

    QTest::keyClick(&segment(0), Qt::Key_Right);
    EXPECT_TRUE(segment(1).hasFocus());
    QTest::keyClick(&segment(1), Qt::Key_Right);
    QTest::keyClick(&segment(2), Qt::Key_Left);

    EXPECT_EQ(calls, (std::vector{1, 2, 1}));
}

TEST_F(SegmentedTest, fromRightToLeftTheLeftArrowGoesOn) {
    window.setLayoutDirection(Qt::RightToLeft);
    QApplication::processEvents();
    choice.choose(0);
    choice.setFocus(Qt::TabFocusReason);

    QTest::keyClick(&segment(0), Qt::Key_Left);

    EXPECT_EQ(choice.chosen(), 1);
}

TEST_F(SegmentedTest, isOneStopWhateverIsChosen) {
    for (const int chosen : {-1, 0, 2}) {
        choice.choose(chosen);
        choice.setFocus(Qt::TabFocusReason);
        QWidget *stop = QApplication::focusWidget();
        ASSERT_EQ(stop, &segment(chosen < 0 ? 0 : chosen));
        QTest::keyClick(stop, Qt::Key_Tab);
        EXPECT_TRUE(after.hasFocus()) << chosen;
        QTest::keyClick(&after, Qt::Key_Backtab);
        EXPECT_EQ(QApplication::focusWidget(), stop) << chosen;
    }
}

TEST_F(SegmentedTest, theRingIsAroundTheWhole) {
    choice.choose(1);
    choice.setFocus(Qt::TabFocusReason);
    const QList<QFocusFrame *> rings = window.findChildren<QFocusFrame *>();
    ASSERT_EQ(rings.size(), 1);
    EXPECT_EQ(rings.front()->widget(), &choice);
}

TEST_F(SegmentedTest, theThumbGlidesFor180Milliseconds) {
    look.setMotion(false);
    choice.choose(0);
    const QImage first = choice.grab().toImage();
    choice.choose(2);
    const QImage last = choice.grab().toImage();
    choice.choose(0);
    look.setMotion(true);

    choice.choose(2);
    animation.passes(0ms);
    animation.passes(90ms);
    EXPECT_NE(choice.grab().toImage(), first);
    EXPECT_NE(choice.grab().toImage(), last);
    animation.passes(90ms);
    EXPECT_EQ(choice.grab().toImage(), last);
}

TEST_F(SegmentedTest, theFirstChoiceDoesNotFlyIn) {
    choice.choose(1);
    const QImage shown = choice.grab().toImage();
    animation.passes(500ms);
    EXPECT_EQ(choice.grab().toImage(), shown);
}

TEST_F(SegmentedTest, theRimBelongsToTheSegmentBesideIt) {
    choice.choose(1);
    QTest::mouseClick(&choice, Qt::LeftButton, {}, QPoint(1, 17));
    EXPECT_EQ(choice.chosen(), 0);
    QTest::mouseClick(&choice, Qt::LeftButton, {}, QPoint(choice.width() - 2, 17));
    EXPECT_EQ(choice.chosen(), 2);
}

TEST_F(SegmentedTest, choosingMovesNoSegment) {
    choice.choose(0);
    QApplication::processEvents();
    const QRect before = segment(1).geometry();
    choice.choose(1);
    QApplication::processEvents();
    EXPECT_EQ(segment(1).geometry(), before);
}

TEST_F(SegmentedTest, isReadAsAGroupOfRadioButtons) {
    choice.setAccessibleName(u"Background"_s);
    choice.choose(1);
    EXPECT_EQ(accessible(choice).role(), QAccessible::Grouping);
    EXPECT_EQ(accessible(choice).text(QAccessible::Name), u"Background");
    EXPECT_EQ(accessible(choice).childCount(), 3);
    EXPECT_EQ(accessible(segment(1)).role(), QAccessible::RadioButton);
    EXPECT_EQ(accessible(segment(1)).text(QAccessible::Name), u"Time of day");
    EXPECT_TRUE(accessible(segment(1)).state().checked);
    EXPECT_FALSE(accessible(segment(0)).state().checked);
}

class SizeChoiceTest : public WindowFixture {
protected:
    SizeChoiceTest() { open(); }
    SizeChoice &sizes = add(new SizeChoice);
};

TEST_F(SizeChoiceTest, isThreeLettersInACapsule) {
    EXPECT_EQ(sizes.size(), QSize(3 * 34 + 2, 30));
}

TEST_F(SizeChoiceTest, namesTheSizesThatItDrawsAsLetters) {
    QStringList names;
    for (QRadioButton *segment : sizes.findChildren<QRadioButton *>()) {
        names.append(accessible(*segment).text(QAccessible::Name));
    }
    EXPECT_EQ(names, (QStringList{u"Small"_s, u"Medium"_s, u"Large"_s}));
    EXPECT_EQ(sizes.toolTip(), u"Display size: Small, Medium or Large");
}

} // namespace zeph::ui
