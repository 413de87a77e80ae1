// SPDX-License-Identifier: MIT
#include "ui/controls/DateField.h"
#include "support/WindowFixture.h"

#include <QCalendarWidget>
#include <QTableView>
#include <QTextCharFormat>
#include <QWheelEvent>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

class DateFieldTest : public WindowFixture {
protected:
    DateFieldTest() {
        window.move(200, 200);
        open();
        field.setFocus(Qt::TabFocusReason);
    }

    QCalendarWidget &calendar() { return *field.calendarWidget(); }

    DateField &field = add(new DateField(QDate(2027, 3, 14)));
};

} // namespace

TEST_F(DateFieldTest, showsTheDayInWords) {
    EXPECT_EQ(field.text(), u"Mar 14, 2027");
    EXPECT_EQ(field.height(), 36);
}

TEST_F(DateFieldTest, theKeyboardOpensTheCalendar) {
    for (const auto &[key, modifiers] :
         {std::pair(Qt::Key_F4, Qt::KeyboardModifiers()),
          std::pair(Qt::Key_Down, Qt::KeyboardModifiers(Qt::AltModifier))}) {
        QTest::keyClick(&field, key, modifiers);
        ASSERT_TRUE(calendar().isVisible());
        calendar().window()->close();
        ASSERT_FALSE(calendar().isVisible());
    }
    EXPECT_EQ(field.date(), QDate(2027, 3, 14));
}

TEST_F(DateFieldTest, aPressOnTheSymbolOpensTheCalendar) {
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(field.width() - 19, 18));
    EXPECT_TRUE(calendar().isVisible());
    calendar().window()->close();
}

TEST_F(DateFieldTest, fromRightToLeftTheSymbolIsAtTheLeft) {
    window.setLayoutDirection(Qt::RightToLeft);
    QApplication::processEvents();
    QTest::mouseClick(&field, Qt::LeftButton, {}, QPoint(19, 18));
    EXPECT_TRUE(calendar().isVisible());
    calendar().window()->close();
}

TEST_F(DateFieldTest, aDayPickedIsTaken) {
    QTest::keyClick(&field, Qt::Key_F4);
    auto *days = calendar().findChild<QTableView *>();
    ASSERT_NE(days, nullptr);
    days->setFocus();
    QTest::keyClick(days, Qt::Key_Right);
    QTest::keyClick(days, Qt::Key_Return);
    EXPECT_EQ(field.date(), QDate(2027, 3, 15));
    EXPECT_FALSE(calendar().isVisible());
}

TEST_F(DateFieldTest, theCalendarHasOurColours) {
    QTest::keyClick(&field, Qt::Key_F4);
    EXPECT_EQ(calendar().palette().color(QPalette::Base), look.tokens().menu);
    EXPECT_EQ(calendar().weekdayTextFormat(Qt::Sunday).foreground().color(), look.tokens().third);
    calendar().window()->close();
}

TEST_F(DateFieldTest, theArrowKeysStepThePartThatTheCursorIsIn) {
    field.setSelectedSection(QDateTimeEdit::DaySection);
    QTest::keyClick(&field, Qt::Key_Up);
    EXPECT_EQ(field.date(), QDate(2027, 3, 15));
}

TEST_F(DateFieldTest, theWheelIsLeftToThePane) {
    QWheelEvent wheel(QPointF(20, 14), field.mapToGlobal(QPointF(20, 14)), {}, QPoint(0, 120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&field, &wheel);
    EXPECT_FALSE(wheel.isAccepted());
    EXPECT_EQ(field.date(), QDate(2027, 3, 14));
}

TEST_F(DateFieldTest, theEdgeTellsTheFocus) {
    const auto edge = [this] { return field.grab().toImage().pixelColor(field.width() / 2, 0); };
    EXPECT_EQ(edge(), look.tokens().focus);
    field.clearFocus();
    EXPECT_EQ(edge(), look.tokens().edge);
}

} // namespace zeph::ui
