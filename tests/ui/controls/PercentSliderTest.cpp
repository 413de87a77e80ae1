// SPDX-License-Identifier: MIT
#include "ui/controls/PercentSlider.h"
#include "support/WindowFixture.h"

#include <QWheelEvent>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

class PercentSliderTest : public WindowFixture {
protected:
    PercentSliderTest() {
        slider.setFixedWidth(174); // leaves a track of 118, of which the knob can go 100
        open();
    }

    PercentSlider &slider = add(new PercentSlider);
};

} // namespace

TEST_F(PercentSliderTest, theArrowsMoveItByOneAndThePageKeysByTen) {
    slider.setValue(50);
    slider.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&slider, Qt::Key_Right);
    EXPECT_EQ(slider.value(), 51);
    QTest::keyClick(&slider, Qt::Key_Left);
    QTest::keyClick(&slider, Qt::Key_PageUp);
    EXPECT_EQ(slider.value(), 60);
    QTest::keyClick(&slider, Qt::Key_End);
    EXPECT_EQ(slider.value(), 100);
    QTest::keyClick(&slider, Qt::Key_Home);
    EXPECT_EQ(slider.value(), 0);
}

TEST_F(PercentSliderTest, aPressOnTheTrackBringsTheKnobThere) {
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(9 + 30, 14));
    EXPECT_EQ(slider.value(), 30);
}

TEST_F(PercentSliderTest, theKnobIsHeldWhereItIsGripped) {
    slider.setValue(30);
    QTest::mousePress(&slider, Qt::LeftButton, {}, QPoint(9 + 34, 14));
    EXPECT_EQ(slider.value(), 30);
    QTest::mouseMove(&slider, QPoint(9 + 54, 14));
    EXPECT_EQ(slider.value(), 50);
    QTest::mouseRelease(&slider, Qt::LeftButton, {}, QPoint(9 + 54, 14));
    EXPECT_FALSE(slider.isSliderDown());
}

TEST_F(PercentSliderTest, itStaysWithinItsEnds) {
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(173, 14));
    EXPECT_EQ(slider.value(), 100);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(0, 14));
    EXPECT_EQ(slider.value(), 0);
}

TEST_F(PercentSliderTest, fromRightToLeftItIsMirrored) {
    slider.setLayoutDirection(Qt::RightToLeft);
    QTest::mouseClick(&slider, Qt::LeftButton, {}, QPoint(174 - 9 - 30, 14));
    EXPECT_EQ(slider.value(), 30);
    QTest::keyClick(&slider, Qt::Key_Left);
    EXPECT_EQ(slider.value(), 31);
}

TEST_F(PercentSliderTest, theWheelIsLeftToThePane) {
    slider.setValue(50);
    QWheelEvent wheel(QPointF(20, 14), slider.mapToGlobal(QPointF(20, 14)), {}, QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&slider, &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_EQ(slider.value(), 50);
}

TEST_F(PercentSliderTest, isReadAsASliderWithItsValue) {
    slider.setValue(35);
    EXPECT_EQ(accessible(slider).role(), QAccessible::Slider);
    QAccessibleValueInterface *value = accessible(slider).valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toInt(), 35);
    EXPECT_EQ(value->maximumValue().toInt(), 100);
}

} // namespace zeph::ui
