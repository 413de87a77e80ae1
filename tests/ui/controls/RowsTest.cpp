// SPDX-License-Identifier: MIT
#include "support/WindowFixture.h"
#include "ui/controls/Card.h"
#include "ui/controls/IconButton.h"
#include "ui/controls/MarkRow.h"
#include "ui/controls/PaneHeader.h"
#include "ui/controls/PillButton.h"
#include "ui/controls/SettingRow.h"
#include "ui/controls/SideBar.h"
#include "ui/controls/SizeChoice.h"
#include "ui/controls/StatusLine.h"
#include "ui/controls/Switch.h"
#include "ui/controls/TextLabel.h"
#include "ui/controls/Tile.h"

#include <QHBoxLayout>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

class SettingRowTest : public WindowFixture {};
class MarkRowTest : public WindowFixture {};
class StatusLineTest : public WindowFixture {};
class SideBarTest : public WindowFixture {};
class TileTest : public WindowFixture {};

std::vector<SideBar::Tab> threeTabs() {
    return {{u"gearshape"_s, u"General"_s},
            {u"lock.shield"_s, u"Permissions"_s},
            {u"info.circle"_s, u"About"_s}};
}

} // namespace

TEST_F(SettingRowTest, aClickOnItsTextsWorksTheSwitch) {
    auto *control = new Switch;
    SettingRow &row = add(new SettingRow({u"power"_s, u"Open at login"_s, u"Always."_s}, control));
    row.setFixedWidth(600);
    open();
    QTest::mouseClick(&row, Qt::LeftButton, {}, QPoint(80, 20));
    EXPECT_TRUE(control->isChecked());
    QTest::mouseClick(&row, Qt::LeftButton, {}, QPoint(80, 40));
    EXPECT_FALSE(control->isChecked());
    QTest::mouseClick(control, Qt::LeftButton);
    EXPECT_TRUE(control->isChecked()) << "and one on the switch only once";
}

TEST_F(SettingRowTest, aClickWorksTheSwitchThatStandsBesideAnother) {
    auto *both = new QWidget;
    auto *parts = new QHBoxLayout(both);
    parts->addWidget(new SizeChoice);
    auto *control = new Switch;
    parts->addWidget(control);
    SettingRow &row = add(new SettingRow({u"power"_s, u"Weather"_s}, both));
    open();
    QTest::mouseClick(&row, Qt::LeftButton, {}, QPoint(60, row.height() / 2));
    EXPECT_TRUE(control->isChecked());
    EXPECT_EQ(control->accessibleName(), u"Weather");
}

TEST_F(SettingRowTest, itsClickPressesNoButton) {
    auto *button = new PillButton(u"Allow"_s);
    SettingRow &row = add(new SettingRow({u"location"_s, u"Location"_s}, button));
    bool isPressed = false;
    QObject::connect(button, &QPushButton::clicked, [&] { isPressed = true; });
    open();
    QTest::mouseClick(&row, Qt::LeftButton, {}, QPoint(60, row.height() / 2));
    EXPECT_FALSE(isPressed);
}

TEST_F(SettingRowTest, aReleaseElsewhereIsNoClick) {
    auto *control = new Switch;
    SettingRow &row = add(new SettingRow({u"power"_s, u"Open at login"_s}, control));
    open();
    QTest::mousePress(&row, Qt::LeftButton, {}, QPoint(60, row.height() / 2));
    QTest::mouseRelease(&row, Qt::LeftButton, {}, QPoint(60, row.height() + 30));
    EXPECT_FALSE(control->isChecked());
}

TEST_F(SettingRowTest, itsTitleNamesTheControlAndItsDetailDescribesIt) {
    auto *control = new Switch;
    SettingRow &row = add(new SettingRow({{}, u"Open at login"_s, u"Always."_s}, control));
    EXPECT_EQ(control->accessibleName(), u"Open at login");
    EXPECT_EQ(control->accessibleDescription(), u"Always.");
    row.setTitle(u"Other"_s);
    row.setDetail({});
    EXPECT_EQ(control->accessibleName(), u"Other");
    EXPECT_EQ(control->accessibleDescription(), QString());
}

TEST_F(SettingRowTest, aButtonKeepsTheNameThatStandsOnIt) {
    auto *button = new PillButton(u"Allow"_s);
    add(new SettingRow({u"location"_s, u"Location"_s, u"for your weather."_s}, button));
    EXPECT_EQ(accessible(*button).text(QAccessible::Name), u"Allow");
    EXPECT_EQ(button->accessibleDescription(), u"Location. for your weather.");
}

TEST_F(SettingRowTest, rowsAreAsHighAsTheyAreDesigned) {
    const auto height = [](SettingRow *row) {
        const int high = row->heightForWidth(600) > 0 ? row->layout()->heightForWidth(600)
                                                      : row->sizeHint().height();
        delete row;
        return high;
    };
    EXPECT_EQ(height(new SettingRow({u"clock"_s, u"Clock"_s}, new Switch)), 48);
    EXPECT_EQ(height(new SettingRow({{}, u"Active"_s}, new Switch)), 54);
    EXPECT_EQ(height(new SettingRow({u"clock"_s, u"Clock"_s, u"Show it."_s}, new Switch)), 68);
}

TEST_F(SettingRowTest, whatIsHiddenBelowTakesNoRoom) {
    SettingRow &row = add(new SettingRow({u"clock"_s, u"Clock"_s}, new Switch));
    auto *status = new StatusLine;
    row.addBelow(status);
    open();
    EXPECT_EQ(row.layout()->heightForWidth(600), 48);
    status->show(StatusLine::Kind::hint, u"Add this in Integrations."_s);
    EXPECT_EQ(row.layout()->heightForWidth(600), 76);
    status->clear();
    EXPECT_EQ(row.layout()->heightForWidth(600), 48);
}

TEST_F(SettingRowTest, withAMuchLargerFontTheControlGoesBelowItsText) {
    const QFont before = QApplication::font();
    QFont large = before;
    large.setPointSizeF(15);
    QApplication::setFont(large);
    auto *control = new Switch;
    SettingRow &row = add(new SettingRow({u"clock"_s, u"24-hour clock"_s, u"Show it."_s}, control));
    row.setFixedWidth(700);
    open();
    EXPECT_GT(control->geometry().top(), row.height() / 2);
    EXPECT_EQ(control->x() - row.textStart(), 0);
    QApplication::setFont(before);
}

TEST_F(MarkRowTest, theWholeRowIsPressed) {
    auto &row = add(new CheckRow(u"Desktop 1"_s, u"current"_s));
    row.setFixedWidth(400);
    open();
    EXPECT_EQ(row.height(), 40);
    QTest::mouseClick(&row, Qt::LeftButton, {}, QPoint(390, 2));
    EXPECT_TRUE(row.isChecked());
    row.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&row, Qt::Key_Space);
    EXPECT_FALSE(row.isChecked());
}

TEST_F(MarkRowTest, arrowsChooseAmongRadioRows) {
    auto &first = add(new RadioRow(u"All displays"_s, u"2 monitors"_s));
    auto &second = add(new RadioRow(u"Harbor 27"_s, {}));
    first.setChecked(true);
    open();
    first.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&first, Qt::Key_Down);
    EXPECT_TRUE(second.isChecked());
    EXPECT_FALSE(first.isChecked());
    EXPECT_EQ(accessible(first).role(), QAccessible::RadioButton);
    EXPECT_EQ(accessible(first).text(QAccessible::Description), u"2 monitors");
}

TEST_F(MarkRowTest, theFocusShowsOnlyForTheKeyboard) {
    look.setMotion(false);
    auto &row = add(new CheckRow(u"Desktop 1"_s, {}));
    open();
    window.setFocus();
    const QImage plain = row.grab().toImage();
    row.setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(row.grab().toImage(), plain);
    window.setFocus();
    row.setFocus(Qt::TabFocusReason);
    EXPECT_NE(row.grab().toImage(), plain);
}

TEST_F(StatusLineTest, anEmptyTextHidesIt) {
    StatusLine &line = add(new StatusLine);
    open();
    EXPECT_TRUE(line.isHidden());
    line.show(StatusLine::Kind::ok, u"Saved"_s);
    EXPECT_TRUE(line.isVisible());
    line.clear();
    EXPECT_TRUE(line.isHidden());
}

TEST_F(StatusLineTest, withoutAPlaceItIsNoWindow) {
    auto *line = new StatusLine;
    line->show(StatusLine::Kind::ok, u"Saved"_s);
    EXPECT_FALSE(line->isVisible());
    add(line);
    open();
    EXPECT_TRUE(line->isVisible());
}

TEST_F(StatusLineTest, isReadOutAsANotification) {
    StatusLine &line = add(new StatusLine);
    open();
    line.show(StatusLine::Kind::error, u"Stripe error 401"_s);
    EXPECT_EQ(accessible(line).role(), QAccessible::Notification);
    EXPECT_EQ(accessible(line).text(QAccessible::Name), u"Stripe error 401");
}

TEST_F(StatusLineTest, anErrorWrapsToFourLinesAndCanBeMarked) {
    StatusLine &line = add(new StatusLine);
    line.setFixedWidth(200);
    line.show(StatusLine::Kind::error, QString(u"A long story of an error. "_s).repeated(20));
    open();
    const auto *text = line.findChild<QLabel *>();
    EXPECT_EQ(text->heightForWidth(176), 4 * 18);
    EXPECT_TRUE(text->textInteractionFlags() & Qt::TextSelectableByKeyboard);
    line.show(StatusLine::Kind::ok, u"Connected"_s);
    EXPECT_EQ(text->textInteractionFlags(), Qt::NoTextInteraction);
}

TEST_F(SideBarTest, arrowsAndHomeAndEndMove) {
    SideBar &bar = add(new SideBar(threeTabs()));
    open();
    bar.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&bar, Qt::Key_Down);
    EXPECT_EQ(bar.currentIndex(), 1);
    QTest::keyClick(&bar, Qt::Key_End);
    QTest::keyClick(&bar, Qt::Key_Down);
    EXPECT_EQ(bar.currentIndex(), 2);
    QTest::keyClick(&bar, Qt::Key_Up);
    EXPECT_EQ(bar.currentIndex(), 1);
    QTest::keyClick(&bar, Qt::Key_Home);
    EXPECT_EQ(bar.currentIndex(), 0);
}

TEST_F(SideBarTest, isAListOfTabsToAssistiveTechnology) {
    SideBar &bar = add(new SideBar(threeTabs()));
    open();
    EXPECT_EQ(accessible(bar).role(), QAccessible::PageTabList);
    EXPECT_EQ(accessible(bar).child(1)->text(QAccessible::Name), u"Permissions");
}

TEST_F(SideBarTest, rowsAre38HighAndTwoApart) {
    SideBar &bar = add(new SideBar(threeTabs()));
    EXPECT_EQ(bar.sizeHint(), QSize(180, 120));
}

TEST_F(TileTest, isAButtonThatSaysWhereItStands) {
    Tile &tile = add(
        new Tile({u"creditcard"_s, u"Stripe"_s, u"Revenue"_s, u"checkmark"_s, u"2 connected"_s}));
    bool isPressed = false;
    QObject::connect(&tile, &QPushButton::clicked, [&] { isPressed = true; });
    open();
    EXPECT_EQ(accessible(tile).role(), QAccessible::Button);
    EXPECT_EQ(accessible(tile).text(QAccessible::Name), u"Stripe");
    EXPECT_EQ(accessible(tile).text(QAccessible::Description), u"Revenue. 2 connected");
    tile.setFocus(Qt::TabFocusReason);
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
        isPressed = false;
        QTest::keyClick(&tile, key);
        EXPECT_TRUE(isPressed) << key;
    }
}

TEST_F(TileTest, isAsHighAsWhatStandsOnIt) {
    Tile &tile = add(new Tile({u"creditcard"_s, u"Stripe"_s, u"Revenue"_s}));
    EXPECT_EQ(tile.sizeHint(), QSize(294, 66));
    tile.set({u"creditcard"_s, u"Stripe"_s, u"Revenue"_s, u"checkmark"_s, u"2 connected"_s});
    EXPECT_EQ(tile.sizeHint(), QSize(294, 90));
}

TEST(PaneHeaderTest, theTitleStandsInTheSamePlaceWhereNoWayBackIs) {
    const PaneHeader plain(u"General"_s, u"App behavior."_s);
    EXPECT_EQ(plain.sizeHint().height(), 8 + 40 + 4 + 20);
}

} // namespace zeph::ui
