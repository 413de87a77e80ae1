// SPDX-License-Identifier: MIT
#include "ui/settings/BehaviorCard.h"

#include "ui/controls/StatusLine.h"
#include "ui/controls/Switch.h"
#include "ui/settings/PaneFixture.h"

using namespace Qt::StringLiterals;

namespace zeph::ui {

class BehaviorCardTest : public PaneFixture {
protected:
    BehaviorCard &open(const QString &desktop = u"~/Desktop"_s) {
        return show(new BehaviorCard(paneContext(), desktop));
    }
};

TEST_F(BehaviorCardTest, opensAtLoginOnceTheDesktopTookIt) {
    open();
    auto &login = named<Switch>(u"Open at login"_s);
    EXPECT_FALSE(login.isChecked());
    click(login);
    EXPECT_EQ(paneLoginItem.wanted, true);
    paneLoginItem.take();
    settle();
    EXPECT_TRUE(login.isChecked());
}

TEST_F(BehaviorCardTest, goesBackAndTellsSoWhenTheDesktopRefusesTheLogin) {
    open();
    auto &login = named<Switch>(u"Open at login"_s);
    click(login);
    paneLoginItem.refuse();
    settle();
    EXPECT_FALSE(login.isChecked());
    EXPECT_TRUE(says(u"Your desktop did not take this, so it stays off."_s));

    paneLoginItem.enabled = true;
    click(login); // a second try clears what the first one told
    EXPECT_FALSE(says(u"Your desktop did not take this, so it stays off."_s));
}

TEST_F(BehaviorCardTest, leavesTheSwitchAloneWhileTheDesktopIsAsked) {
    open();
    auto &login = named<Switch>(u"Open at login"_s);
    click(login);
    preferences.setUse24HourClock(true); // something else is refreshed meanwhile
    settle();
    EXPECT_TRUE(login.isChecked());
}

TEST_F(BehaviorCardTest, answersOfTheDesktopAfterTheEndOfTheCardAreDropped) {
    auto *card = &open();
    click(named<Switch>(u"Open at login"_s));
    delete card;
    paneLoginItem.take();
    settle();
}

TEST_F(BehaviorCardTest, storesWhetherMeetingTitlesAreRead) {
    open();
    auto &titles = named<Switch>(u"Show meeting titles"_s);
    EXPECT_FALSE(titles.isChecked());
    press(titles, Qt::Key_Space);
    EXPECT_EQ(defaults.get<bool>(u"zeph.calendar.titles"_s), true);
    press(titles, Qt::Key_Space);
    EXPECT_EQ(defaults.get<bool>(u"zeph.calendar.titles"_s), false);
}

TEST_F(BehaviorCardTest, storesTheFormOfTheClockAndFollowsIt) {
    preferences.setUse24HourClock(false);
    open();
    auto &clockForm = named<Switch>(u"24-hour clock"_s);
    click(clockForm);
    EXPECT_TRUE(preferences.use24HourClock());
    preferences.setUse24HourClock(false);
    settle();
    EXPECT_FALSE(clockForm.isChecked());
}

TEST_F(BehaviorCardTest, hidesTheFilesOnTheDesktop) {
    open();
    auto &files = named<Switch>(u"Hide Desktop files"_s);
    click(files);
    EXPECT_EQ(defaults.get<bool>(u"zeph.desktop.hideIcons"_s), true);
    executor.runAll();
    EXPECT_FALSE(paneShell.shown);
    click(files);
    EXPECT_EQ(defaults.get<bool>(u"zeph.desktop.hideIcons"_s), false);
    executor.runAll();
    EXPECT_TRUE(paneShell.shown);
}

TEST_F(BehaviorCardTest, tellsThatIconsStayWhereTheirSettingCannotBeKept) {
    paneShell.isReadable = false;
    open();
    auto &files = named<Switch>(u"Hide Desktop files"_s);
    const QString problem = u"Your icons stay for now: what their setting was can't be kept."_s;
    click(files);
    executor.runAll();
    settle();
    EXPECT_TRUE(paneShell.shown);
    EXPECT_TRUE(says(problem));
    click(files);
    executor.runAll();
    settle();
    EXPECT_FALSE(says(problem));
}

TEST_F(BehaviorCardTest, namesTheUsersOwnDesktopFolder) {
    open(u"~/Schreibtisch"_s);
    EXPECT_TRUE(says(u"Hides folders and files via your file manager — they are removed, not "
                     u"covered by Tavi. Still in ~/Schreibtisch when you turn this off. Your file "
                     u"manager restarts briefly when you change this."_s));
}

TEST_F(BehaviorCardTest, speaksOfTheDesktopFolderWhereItHasNoPath) {
    open({});
    EXPECT_TRUE(named<Switch>(u"Hide Desktop files"_s)
                    .accessibleDescription()
                    .contains(u"Still in your desktop folder when"_s));
}

TEST_F(BehaviorCardTest, offersNoHidingWhereTheDesktopHasNone) {
    paneShell.canHide = false;
    open();
    EXPECT_FALSE(named<Switch>(u"Hide Desktop files"_s).isEnabled());
    EXPECT_TRUE(says(u"Your desktop has no setting for this."_s));
}

} // namespace zeph::ui
