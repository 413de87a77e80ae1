// SPDX-License-Identifier: MIT
#include "ui/controls/ReorderList.h"

#include "support/WindowFixture.h"

#include <QScrollBar>

namespace zeph::ui {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr int rowHeight = 42;

std::vector<ReorderList::Row> rowsOf(const QStringList &ids) {
    std::vector<ReorderList::Row> rows;
    for (const QString &id : ids) {
        rows.push_back({id, u"calendar"_s, u"The "_s + id});
    }
    return rows;
}

class ReorderListTest : public WindowFixture {
protected:
    ReorderListTest() {
        look.setMotion(false);
        list.setRows(rowsOf({u"a"_s, u"b"_s, u"c"_s, u"d"_s, u"e"_s}));
        list.setFixedSize(290, 5 * rowHeight);
        list.onReordered = [this](const QStringList &order) { told.append(order.join(QString())); };
        open();
        list.setFocus(Qt::TabFocusReason);
        list.setCurrentRow(1);
    }

    void key(Qt::Key one, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(&list, one, modifiers);
    }

    QString order() const { return list.order().join(QString()); }
    QString spoken(int row) const {
        return list.item(row)->data(Qt::AccessibleTextRole).toString();
    }

    void press(int row) { QTest::mousePress(list.viewport(), Qt::LeftButton, {}, inRow(row)); }
    void drag(int y) { QTest::mouseMove(list.viewport(), QPoint(100, y)); }
    void release() { QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, QPoint(100, 10)); }
    static QPoint inRow(int row) { return {100, row * rowHeight + rowHeight / 2}; }

    ReorderList &list = add(new ReorderList);
    QStringList told;
};

} // namespace

TEST_F(ReorderListTest, spaceLiftsArrowsMoveAndSpaceDrops) {
    key(Qt::Key_Space);
    EXPECT_TRUE(list.isLifted());
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    EXPECT_EQ(order(), u"abcde") << "nothing is told before the drop";
    EXPECT_TRUE(told.isEmpty());
    key(Qt::Key_Space);
    EXPECT_FALSE(list.isLifted());
    EXPECT_EQ(order(), u"acdbe");
    EXPECT_EQ(told, QStringList{u"acdbe"_s});
    EXPECT_EQ(list.currentRow(), 3);
}

TEST_F(ReorderListTest, escapePutsTheRowBack) {
    key(Qt::Key_Space);
    key(Qt::Key_End);
    key(Qt::Key_Escape);
    EXPECT_FALSE(list.isLifted());
    EXPECT_EQ(order(), u"abcde");
    EXPECT_TRUE(told.isEmpty());
    EXPECT_EQ(list.currentRow(), 1);
}

TEST_F(ReorderListTest, escapeIsTheWindowsUnlessARowIsLifted) {
    QKeyEvent before(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
    before.ignore();
    QApplication::sendEvent(&list, &before);
    EXPECT_FALSE(before.isAccepted());
    key(Qt::Key_Space);
    QKeyEvent during(QEvent::ShortcutOverride, Qt::Key_Escape, Qt::NoModifier);
    during.ignore();
    QApplication::sendEvent(&list, &during);
    EXPECT_TRUE(during.isAccepted());
}

TEST_F(ReorderListTest, altWithAnArrowCarriesTheRowAtOnce) {
    key(Qt::Key_Down, Qt::AltModifier);
    EXPECT_EQ(order(), u"acbde");
    key(Qt::Key_Up, Qt::AltModifier);
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(order(), u"bacde");
    key(Qt::Key_Up, Qt::AltModifier);
    EXPECT_EQ(order(), u"bacde") << "there is nothing above the first";
    EXPECT_EQ(told, (QStringList{u"acbde"_s, u"abcde"_s, u"bacde"_s}));
    EXPECT_EQ(list.currentRow(), 0);
}

TEST_F(ReorderListTest, withoutALiftTheArrowsMoveTheCurrentRow) {
    key(Qt::Key_Down);
    EXPECT_EQ(list.currentRow(), 2);
    EXPECT_EQ(order(), u"abcde");
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(ReorderListTest, aLiftedRowStaysWithinTheList) {
    key(Qt::Key_Space);
    for (int step = 0; step < 9; ++step) {
        key(Qt::Key_Up);
    }
    key(Qt::Key_Return);
    EXPECT_EQ(order(), u"bacde");
}

TEST_F(ReorderListTest, theRowInTheHandLiesOverTheWindowAndIsGoneAfterwards) {
    EXPECT_TRUE(window.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).size() == 1);
    key(Qt::Key_Space);
    EXPECT_EQ(window.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).size(), 2);
    key(Qt::Key_Space);
    EXPECT_EQ(window.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly).size(), 1);
}

TEST_F(ReorderListTest, theMouseDragsARowToWhereItsMiddleIs) {
    press(1);
    EXPECT_FALSE(list.isLifted());
    drag(inRow(1).y() + 3);
    EXPECT_FALSE(list.isLifted()) << "a click that trembles is no drag";
    drag(inRow(3).y() + 5);
    EXPECT_TRUE(list.isLifted());
    release();
    EXPECT_FALSE(list.isLifted());
    EXPECT_EQ(order(), u"acdbe");
    EXPECT_EQ(told, QStringList{u"acdbe"_s});
}

TEST_F(ReorderListTest, escapeEndsADragWithoutAChange) {
    press(0);
    drag(inRow(4).y());
    key(Qt::Key_Escape);
    EXPECT_FALSE(list.isLifted());
    release();
    EXPECT_EQ(order(), u"abcde");
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(ReorderListTest, aDropAtTheSamePlaceTellsNothing) {
    press(2);
    drag(inRow(2).y() + 15);
    EXPECT_TRUE(list.isLifted());
    release();
    EXPECT_EQ(order(), u"abcde");
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(ReorderListTest, rowsThatAreToldDuringALiftAreShownAfterIt) {
    key(Qt::Key_Space);
    list.setRows(rowsOf({u"a"_s, u"b"_s, u"x"_s}));
    EXPECT_EQ(order(), u"abcde");
    key(Qt::Key_Escape);
    EXPECT_EQ(order(), u"abx");
}

TEST_F(ReorderListTest, theCurrentRowIsKeptByItsId) {
    list.setRows(rowsOf({u"x"_s, u"a"_s, u"c"_s, u"b"_s}));
    EXPECT_EQ(list.currentRow(), 3);
    list.setRows(rowsOf({u"x"_s, u"a"_s}));
    EXPECT_EQ(list.currentRow(), 1) << "the nearest where it is gone";
}

TEST_F(ReorderListTest, aRowThatLosesTheFocusInTheHandGoesBack) {
    auto &other = add(new QPushButton(u"Other"_s));
    other.show();
    key(Qt::Key_Space);
    key(Qt::Key_Down);
    other.setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(list.isLifted());
    EXPECT_EQ(order(), u"abcde");
}

TEST_F(ReorderListTest, eachRowSaysItsPlaceAndHowManyThereAre) {
    EXPECT_EQ(spoken(0), u"The a, 1 of 5");
    key(Qt::Key_Space);
    EXPECT_EQ(spoken(1), u"The b, 2 of 5, lifted");
    key(Qt::Key_Down);
    EXPECT_EQ(spoken(1), u"The b, 3 of 5, lifted");
    EXPECT_EQ(spoken(2), u"The c, 2 of 5");
    key(Qt::Key_Space);
    EXPECT_EQ(spoken(2), u"The b, 3 of 5");
    QAccessibleInterface &table = accessible(list);
    EXPECT_EQ(table.role(), QAccessible::List);
    EXPECT_EQ(table.childCount(), 5);
    EXPECT_EQ(table.child(2)->text(QAccessible::Name), u"The b, 3 of 5");
}

TEST_F(ReorderListTest, theOthersMakeRoomIn160Milliseconds) {
    key(Qt::Key_Space);
    key(Qt::Key_Down);
    const QImage arrived = list.grab().toImage();
    key(Qt::Key_Up);
    look.setMotion(true);
    key(Qt::Key_Down);
    QApplication::processEvents();
    animation.passes(0ms);
    animation.passes(100ms);
    EXPECT_NE(list.grab().toImage(), arrived);
    animation.passes(60ms);
    EXPECT_EQ(list.grab().toImage(), arrived);
}

TEST_F(ReorderListTest, aPlaceOutOfSightIsScrolledTo) {
    list.setFixedHeight(3 * rowHeight);
    QApplication::processEvents();
    key(Qt::Key_Space);
    key(Qt::Key_End);
    EXPECT_EQ(list.verticalScrollBar()->value(), 2 * rowHeight);
    key(Qt::Key_Home);
    EXPECT_EQ(list.verticalScrollBar()->value(), 0);
}

TEST_F(ReorderListTest, theCurrentRowIsScrolledToByKeyboard) {
    list.setFixedHeight(3 * rowHeight);
    QApplication::processEvents();
    QScrollBar &bar = *list.verticalScrollBar();
    key(Qt::Key_Down);
    EXPECT_EQ(bar.value(), 24) << "with room to spare";
    key(Qt::Key_End);
    EXPECT_EQ(bar.value(), 2 * rowHeight);
    key(Qt::Key_Home);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(ReorderListTest, aRowThatWasScrolledAwayComesBackWithTheFocusAndWhenItIsLifted) {
    list.setFixedHeight(3 * rowHeight);
    auto &other = add(new QPushButton(u"Other"_s));
    other.show();
    QApplication::processEvents();
    QScrollBar &bar = *list.verticalScrollBar();
    list.setCurrentRow(0);
    bar.setValue(bar.maximum());
    key(Qt::Key_Space);
    EXPECT_EQ(bar.value(), 0);
    key(Qt::Key_Escape);
    bar.setValue(bar.maximum());
    other.setFocus(Qt::TabFocusReason);
    list.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(bar.value(), bar.maximum()) << "a press must not move what it hits";
    QFocusEvent back(QEvent::FocusIn, Qt::ActiveWindowFocusReason);
    QApplication::sendEvent(&list, &back);
    EXPECT_EQ(bar.value(), bar.maximum()) << "nor does a window that is raised by one";
    other.setFocus(Qt::TabFocusReason);
    list.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(bar.value(), 0);
}

TEST_F(ReorderListTest, aKeyThatLeadsNowhereScrollsNothing) {
    list.setFixedHeight(3 * rowHeight);
    QApplication::processEvents();
    QScrollBar &bar = *list.verticalScrollBar();
    key(Qt::Key_Home);
    bar.setValue(bar.maximum());
    key(Qt::Key_Shift);
    EXPECT_EQ(bar.value(), bar.maximum());
    key(Qt::Key_Home);
    EXPECT_EQ(bar.value(), 0) << "the current row all the same";
    key(Qt::Key_Space);
    key(Qt::Key_End);
    key(Qt::Key_PageUp);
    EXPECT_EQ(bar.value(), bar.maximum()) << "where the row in the hand is";
}

} // namespace zeph::ui
