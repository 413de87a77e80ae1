// SPDX-License-Identifier: MIT
#include "ui/controls/ChoiceBox.h"
#include "support/WindowFixture.h"

#include <QAbstractItemView>
#include <QScreen>
#include <QSignalSpy>
#include <QWheelEvent>

namespace zeph::ui {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class ChoiceBoxTest : public WindowFixture {
protected:
    ChoiceBoxTest() {
        window.move(200, 300);
        open();
        box.setFocus(Qt::TabFocusReason);
        box.setCurrentIndex(2);
    }
    ~ChoiceBoxTest() override { box.hidePopup(); }

    QWidget &popup() { return *box.view()->window(); }

    ChoiceBox &box = add(new ChoiceBox(
        {u"Last 3 months"_s, u"Last 6 months"_s, u"Last year"_s, u"Last 2 years (stacked)"_s}));
};

} // namespace

TEST_F(ChoiceBoxTest, theArrowsChooseWithoutOpening) {
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(box.currentIndex(), 3);
    EXPECT_FALSE(popup().isVisible());
}

TEST_F(ChoiceBoxTest, spaceOpensTheListAndEnterTakesARow) {
    QSignalSpy chosen(&box, &QComboBox::activated);
    QTest::keyClick(&box, Qt::Key_Space);
    ASSERT_TRUE(popup().isVisible());
    QTest::keyClick(box.view(), Qt::Key_Up);
    QTest::keyClick(box.view(), Qt::Key_Return);
    EXPECT_EQ(box.currentIndex(), 1);
    EXPECT_EQ(chosen.count(), 1);
}

TEST_F(ChoiceBoxTest, escapeClosesTheListAndChangesNothing) {
    box.showPopup();
    QTest::keyClick(box.view(), Qt::Key_Up);
    QTest::keyClick(box.view(), Qt::Key_Escape);
    EXPECT_FALSE(popup().isVisible());
    EXPECT_EQ(box.currentIndex(), 2);
}

TEST_F(ChoiceBoxTest, theChosenRowCoversTheBox) {
    box.showPopup();
    QApplication::processEvents();
    const QRect row = box.view()->visualRect(box.model()->index(2, 0));
    const int center = box.view()->viewport()->mapToGlobal(row.center()).y();
    EXPECT_NEAR(center, box.mapToGlobal(box.rect().center()).y(), 1);
    EXPECT_EQ(row.height(), 32);
    EXPECT_EQ(popup().geometry().right(), box.mapToGlobal(QPoint(0, 0)).x() + box.width() - 1);
    EXPECT_EQ(popup().height(), 4 * 32 + 2 * 6);
}

TEST_F(ChoiceBoxTest, theListStaysOnTheScreen) {
    window.move(0, 0);
    QApplication::processEvents();
    box.showPopup();
    EXPECT_TRUE(box.screen()->availableGeometry().contains(popup().geometry()));
}

TEST_F(ChoiceBoxTest, theListIsAMenuOfOursWithRoundCorners) {
    look.setMotion(false);
    box.showPopup();
    const QImage picture = popup().grab().toImage();
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
    EXPECT_FALSE(popup().mask().contains(QPoint(1, 1))) << "also where nothing shows through";
    EXPECT_TRUE(popup().mask().contains(QPoint(6, 6)));
    EXPECT_EQ(picture.pixelColor(picture.width() / 2, 3), look.tokens().menu);
}

TEST_F(ChoiceBoxTest, theListFadesInFor120Milliseconds) {
    box.showPopup();
    animation.passes(0ms);
    EXPECT_LT(popup().windowOpacity(), 0.1);
    animation.passes(60ms);
    EXPECT_LT(popup().windowOpacity(), 1);
    animation.passes(60ms);
    EXPECT_EQ(popup().windowOpacity(), 1);
    box.hidePopup();

    look.setMotion(false);
    box.showPopup();
    EXPECT_EQ(popup().windowOpacity(), 1);
}

TEST_F(ChoiceBoxTest, theWheelIsLeftToThePane) {
    QWheelEvent wheel(QPointF(20, 14), box.mapToGlobal(QPointF(20, 14)), {}, QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&box, &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_EQ(box.currentIndex(), 2);
}

TEST_F(ChoiceBoxTest, isReadAsAComboBoxWithWhatIsChosen) {
    box.setAccessibleName(u"Graph"_s);
    EXPECT_EQ(accessible(box).role(), QAccessible::ComboBox);
    EXPECT_EQ(accessible(box).text(QAccessible::Name), u"Graph, Last year");
    EXPECT_EQ(accessible(box).text(QAccessible::Value), u"Last year");
    EXPECT_FALSE(accessible(box).state().expanded);
    accessible(box).actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(accessible(box).state().expanded);
}

} // namespace zeph::ui
