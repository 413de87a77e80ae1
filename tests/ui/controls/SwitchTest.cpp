// SPDX-License-Identifier: MIT
#include "ui/controls/Switch.h"
#include "support/WindowFixture.h"

namespace zeph::ui {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class SwitchTest : public WindowFixture {
protected:
    SwitchTest() {
        toggle.setAccessibleName(u"24-hour clock"_s);
        toggle.setAccessibleDescription(u"Show the clock as 14:30."_s);
        open();
    }

    QImage picture() { return toggle.grab().toImage(); }

    Switch &toggle = add(new Switch);
};

} // namespace

TEST_F(SwitchTest, spaceTurnsItOnAndOff) {
    toggle.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&toggle, Qt::Key_Space);
    EXPECT_TRUE(toggle.isChecked());
    QTest::keyClick(&toggle, Qt::Key_Space);
    EXPECT_FALSE(toggle.isChecked());
}

TEST_F(SwitchTest, theWholeTargetWorksIt) {
    EXPECT_EQ(toggle.size(), QSize(48, 34));
    QTest::mouseClick(&toggle, Qt::LeftButton, {}, QPoint(1, 32));
    EXPECT_TRUE(toggle.isChecked());
}

TEST_F(SwitchTest, itSlidesFor160Milliseconds) {
    look.setMotion(false);
    const QImage off = picture();
    toggle.setChecked(true);
    const QImage on = picture();
    toggle.setChecked(false);
    look.setMotion(true);

    toggle.setChecked(true);
    animation.passes(0ms);
    EXPECT_EQ(picture(), off);
    animation.passes(80ms);
    EXPECT_NE(picture(), off);
    EXPECT_NE(picture(), on);
    animation.passes(80ms);
    EXPECT_EQ(picture(), on);
}

TEST_F(SwitchTest, onAndOffDifferInShapeAndPlaceNotInColourAlone) {
    look.setMotion(false);
    const int middle = toggle.height() / 2;
    const QColor sky = picture().pixelColor(1, 1);
    EXPECT_EQ(picture().pixelColor(4 + 13, middle), sky) << "the moon is a ring";

    toggle.setChecked(true);
    EXPECT_EQ(picture().pixelColor(4 + 31, middle), look.tokens().onAccent) << "the sun is a disc";
    EXPECT_EQ(picture().pixelColor(4 + 13, middle), look.tokens().accent);
}

TEST_F(SwitchTest, fromRightToLeftItIsMirrored) {
    look.setMotion(false);
    toggle.setChecked(true);
    const QImage plain = picture();
    toggle.setLayoutDirection(Qt::RightToLeft);
    EXPECT_NE(picture(), plain);
    const QImage back = picture().mirrored(true, false);
    EXPECT_EQ(back.pixelColor(4 + 31, 17), plain.pixelColor(4 + 31, 17));
    EXPECT_EQ(back.pixelColor(4 + 13, 17), plain.pixelColor(4 + 13, 17));
}

TEST_F(SwitchTest, isPaintedAtTheEndOfItsPlaceOrAtTheStart) {
    look.setMotion(false);
    const QColor sky = picture().pixelColor(1, 1);
    toggle.setChecked(true);
    EXPECT_EQ(picture().pixelColor(2, 17), sky);
    EXPECT_NE(picture().pixelColor(46, 17), sky);
    toggle.setAtStart(true);
    EXPECT_NE(picture().pixelColor(2, 17), sky);
    EXPECT_EQ(picture().pixelColor(46, 17), sky);
}

TEST_F(SwitchTest, isReadAsACheckBoxWithItsState) {
    EXPECT_EQ(accessible(toggle).role(), QAccessible::CheckBox);
    EXPECT_EQ(accessible(toggle).text(QAccessible::Name), u"24-hour clock");
    EXPECT_EQ(accessible(toggle).text(QAccessible::Description), u"Show the clock as 14:30.");
    EXPECT_FALSE(accessible(toggle).state().checked);
    toggle.setChecked(true);
    EXPECT_TRUE(accessible(toggle).state().checked);
}

} // namespace zeph::ui
