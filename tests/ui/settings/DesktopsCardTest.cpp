// SPDX-License-Identifier: MIT
#include "ui/settings/DesktopsCard.h"

#include "ui/controls/MarkRow.h"
#include "ui/settings/PaneFixture.h"

using namespace Qt::StringLiterals;

namespace zeph::ui {

class DesktopsCardTest : public PaneFixture {
protected:
    DesktopsCardTest() { setDesktops(3); }

    void setDesktops(int count, quint64 current = 1) {
        virtualDesktops.change({display(count, current)});
        settle();
    }

    void open() { show(new DesktopsCard(paneContext())); }

    CheckRow &desktop(int number) { return named<CheckRow>(u"Desktop %1"_s.arg(number)); }

    static DesktopSelection only(const std::set<int> &numbers) { return SomeDesktops{numbers}; }
};

TEST_F(DesktopsCardTest, theFirstClickChoosesOneAlone) {
    open();
    EXPECT_TRUE(named<RadioRow>(u"All desktops"_s).isChecked());
    EXPECT_EQ(named<RadioRow>(u"All desktops"_s).detail(), u"3 desktops"_s);
    click(desktop(2));
    EXPECT_EQ(preferences.desktopSelection(), only({2}));
    EXPECT_FALSE(named<RadioRow>(u"All desktops"_s).isChecked());
    EXPECT_TRUE(desktop(2).isChecked());
    press(desktop(3), Qt::Key_Space);
    EXPECT_EQ(preferences.desktopSelection(), only({2, 3}));
}

TEST_F(DesktopsCardTest, theLastOneStaysChosen) {
    preferences.setDesktopSelection(only({2}));
    open();
    click(desktop(2));
    EXPECT_EQ(preferences.desktopSelection(), only({2}));
    EXPECT_TRUE(desktop(2).isChecked());
}

TEST_F(DesktopsCardTest, allIsChosenAgain) {
    preferences.setDesktopSelection(only({1, 2}));
    open();
    auto &all = named<RadioRow>(u"All desktops"_s);
    EXPECT_FALSE(all.isChecked());
    click(all);
    EXPECT_EQ(preferences.desktopSelection(), DesktopSelection(AllDesktops{}));
    EXPECT_TRUE(all.isChecked());
    EXPECT_FALSE(desktop(1).isChecked());
    click(all); // once more changes nothing
    EXPECT_TRUE(all.isChecked());
}

TEST_F(DesktopsCardTest, tellsTheCurrentOneAndFollowsIt) {
    open();
    EXPECT_EQ(desktop(1).detail(), u"current"_s);
    setDesktops(3, 2);
    EXPECT_EQ(desktop(1).detail(), QString());
    EXPECT_EQ(desktop(2).detail(), u"current"_s);
}

TEST_F(DesktopsCardTest, namesThoseThatHaveANameAndFollowsIt) {
    open();
    ManagedDisplay shared = display(3, 1);
    shared.spaces[0].name = u"Mail"_s;
    virtualDesktops.change({shared});
    settle();
    EXPECT_EQ(desktop(1).detail(), u"Mail · current"_s);
    shared.spaces[0].name = u"Post"_s;
    virtualDesktops.change({shared});
    settle();
    EXPECT_EQ(desktop(1).detail(), u"Post · current"_s);
}

TEST_F(DesktopsCardTest, followsThoseThatComeAndGo) {
    open();
    setDesktops(4);
    EXPECT_EQ(named<RadioRow>(u"All desktops"_s).detail(), u"4 desktops"_s);
    EXPECT_TRUE(desktop(4).isVisible());
    setDesktops(2);
    EXPECT_EQ(named<RadioRow>(u"All desktops"_s).detail(), u"2 desktops"_s);
    EXPECT_FALSE(find<CheckRow>(u"Desktop 3"_s));
}

TEST_F(DesktopsCardTest, explainsItselfWithOneDesktopOnly) {
    const QString onlyOne = u"You only have one desktop right now. Add more in your desktop's "
                            u"workspace settings and they'll show up here."_s;
    setDesktops(1);
    open();
    EXPECT_TRUE(says(onlyOne));
    EXPECT_FALSE(find<RadioRow>(u"All desktops"_s));
    setDesktops(2);
    EXPECT_FALSE(says(onlyOne));
    EXPECT_TRUE(desktop(2).isVisible());
    setDesktops(0);
    EXPECT_TRUE(says(onlyOne));
    EXPECT_FALSE(find<CheckRow>(u"Desktop 1"_s));
}

} // namespace zeph::ui
