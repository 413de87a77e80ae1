// SPDX-License-Identifier: MIT
#include "ui/settings/DisplaysCard.h"

#include "ui/controls/MarkRow.h"
#include "ui/settings/PaneFixture.h"

using namespace Qt::StringLiterals;

namespace zeph::ui {

class DisplaysCardTest : public PaneFixture {
protected:
    DisplaysCardTest() {
        screens.screens = {display(u"left"_s, u"Harbor 27"_s), display(u"right"_s, u"Built-in"_s)};
    }

    static Screen display(const QString &identity, const QString &name) {
        Screen made = screen(identity, 1, 1920, 1080);
        made.name = name;
        return made;
    }

    void open() { show(new DisplaysCard(paneContext())); }

    QStringList titles() const {
        QStringList shown;
        for (const RadioRow *row : all<RadioRow>()) {
            if (row->isVisible()) {
                shown << row->text();
            }
        }
        return shown;
    }

    QStringList chosen() const {
        QStringList marked;
        for (const RadioRow *row : all<RadioRow>()) {
            if (row->isVisible() && row->isChecked()) {
                marked << row->text();
            }
        }
        return marked;
    }
};

TEST_F(DisplaysCardTest, offersAllDisplaysAndThenEach) {
    open();
    EXPECT_EQ(titles(), (QStringList{u"All displays"_s, u"Harbor 27"_s, u"Built-in"_s}));
    EXPECT_EQ(chosen(), QStringList{u"All displays"_s});
    EXPECT_EQ(named<RadioRow>(u"All displays"_s).detail(), u"2 monitors"_s);
}

TEST_F(DisplaysCardTest, storesTheIdentityOfTheChosenDisplay) {
    open();
    click(named<RadioRow>(u"Built-in"_s));
    EXPECT_EQ(preferences.displaySelection(), DisplaySelection(OneScreen{u"right"_s}));
    EXPECT_EQ(chosen(), QStringList{u"Built-in"_s});
    click(named<RadioRow>(u"All displays"_s));
    EXPECT_EQ(preferences.displaySelection(), DisplaySelection(AllDisplays{}));
}

TEST_F(DisplaysCardTest, arrowsChoose) {
    open();
    press(named<RadioRow>(u"All displays"_s), Qt::Key_Down);
    EXPECT_EQ(preferences.displaySelection(), DisplaySelection(OneScreen{u"left"_s}));
}

TEST_F(DisplaysCardTest, followsDisplaysThatComeAndGo) {
    open();
    screens.change({display(u"left"_s, u"Harbor 27"_s)});
    settle();
    EXPECT_EQ(titles(), (QStringList{u"All displays"_s, u"Harbor 27"_s}));
    screens.change({display(u"third"_s, u"Projector"_s), display(u"left"_s, u"Harbor 27"_s)});
    settle();
    EXPECT_EQ(titles(), (QStringList{u"All displays"_s, u"Projector"_s, u"Harbor 27"_s}));
    click(named<RadioRow>(u"Harbor 27"_s));
    EXPECT_EQ(preferences.displaySelection(), DisplaySelection(OneScreen{u"left"_s}));
    EXPECT_EQ(chosen(), QStringList{u"Harbor 27"_s});
}

TEST_F(DisplaysCardTest, marksNoneWhileTheChosenOneIsUnplugged) {
    preferences.setDisplaySelection(OneScreen{u"right"_s});
    open();
    EXPECT_EQ(chosen(), QStringList{u"Built-in"_s});
    screens.change({display(u"left"_s, u"Harbor 27"_s)});
    settle();
    EXPECT_EQ(chosen(), QStringList{});
}

} // namespace zeph::ui
