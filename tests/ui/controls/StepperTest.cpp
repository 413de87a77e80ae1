// SPDX-License-Identifier: MIT
#include "ui/controls/Stepper.h"
#include "support/WindowFixture.h"

#include <QLineEdit>
#include <QWheelEvent>

namespace zeph::ui {

namespace {

const QPoint onLess(20, 17);
const QPoint onMore(60, 17);

class StepperTest : public WindowFixture {
protected:
    StepperTest() {
        stepper.setValue(3);
        open();
        stepper.setFocus(Qt::TabFocusReason);
    }

    Stepper &stepper = add(new Stepper(1, 5));
};

} // namespace

TEST_F(StepperTest, theLeadingHalfIsOneLessTheOtherOneMore) {
    EXPECT_EQ(stepper.size(), QSize(80, 34));
    QTest::mouseClick(&stepper, Qt::LeftButton, {}, onLess);
    EXPECT_EQ(stepper.value(), 2);
    QTest::mouseClick(&stepper, Qt::LeftButton, {}, onMore);
    EXPECT_EQ(stepper.value(), 3);
}

TEST_F(StepperTest, fromRightToLeftTheHalvesChangeSides) {
    stepper.setLayoutDirection(Qt::RightToLeft);
    QTest::mouseClick(&stepper, Qt::LeftButton, {}, onLess);
    EXPECT_EQ(stepper.value(), 4);
    QTest::keyClick(&stepper, Qt::Key_Right);
    EXPECT_EQ(stepper.value(), 3);
}

TEST_F(StepperTest, theKeysStep) {
    for (const auto &[key, value] :
         {std::pair(Qt::Key_Up, 4), std::pair(Qt::Key_Down, 3), std::pair(Qt::Key_Right, 4),
          std::pair(Qt::Key_Left, 3), std::pair(Qt::Key_Plus, 4), std::pair(Qt::Key_Minus, 3),
          std::pair(Qt::Key_End, 5), std::pair(Qt::Key_Home, 1)}) {
        QTest::keyClick(&stepper, key);
        EXPECT_EQ(stepper.value(), value) << key;
    }
}

TEST_F(StepperTest, digitsChangeNothing) {
    for (const auto key : {Qt::Key_2, Qt::Key_Backspace, Qt::Key_5, Qt::Key_Return}) {
        stepper.selectAll();
        QTest::keyClick(&stepper, key);
        EXPECT_EQ(stepper.value(), 3) << key;
    }
}

TEST_F(StepperTest, stopsAtItsEnds) {
    stepper.setValue(5);
    QTest::mouseClick(&stepper, Qt::LeftButton, {}, onMore);
    EXPECT_EQ(stepper.value(), 5);
    stepper.setValue(1);
    QTest::keyClick(&stepper, Qt::Key_Left);
    EXPECT_EQ(stepper.value(), 1);
}

TEST_F(StepperTest, showsThatAnEndIsReached) {
    const auto less = [this] { return stepper.grab(QRect(10, 5, 20, 24)).toImage(); };
    const QImage open = less();
    stepper.setValue(1);
    EXPECT_NE(less(), open);
}

TEST_F(StepperTest, showsNoField) {
    EXPECT_FALSE(stepper.findChild<QLineEdit *>()->isVisible());
}

TEST_F(StepperTest, theWheelIsLeftToThePane) {
    QWheelEvent wheel(onMore, stepper.mapToGlobal(onMore), {}, QPoint(0, 120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&stepper, &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_EQ(stepper.value(), 3);
}

TEST_F(StepperTest, isReadAsASpinBoxWithItsValue) {
    EXPECT_EQ(accessible(stepper).role(), QAccessible::SpinBox);
    QAccessibleValueInterface *value = accessible(stepper).valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->currentValue().toInt(), 3);
    EXPECT_EQ(value->minimumValue().toInt(), 1);
    EXPECT_EQ(value->maximumValue().toInt(), 5);
}

} // namespace zeph::ui
