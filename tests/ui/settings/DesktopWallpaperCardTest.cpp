// SPDX-License-Identifier: MIT
#include "ui/settings/DesktopWallpaperCard.h"

#include "support/FakeDesktopWallpaper.h"
#include "ui/controls/Switch.h"
#include "ui/settings/GeneralPane.h"
#include "ui/settings/PaneFixture.h"

using namespace Qt::StringLiterals;

namespace zeph::ui {

class DesktopWallpaperCardTest : public PaneFixture {
protected:
    static inline const QString title = u"Show under the icons of Plasma"_s;

    Switch &open() {
        show(new DesktopWallpaperCard(paneContext(), desktop));
        return named<Switch>(title);
    }

    FakeDesktopWallpaper desktop;
};

TEST_F(DesktopWallpaperCardTest, choosesAndFollowsTheChoice) {
    Switch &control = open();
    EXPECT_FALSE(control.isChecked());
    click(control);
    EXPECT_TRUE(desktop.chosen);
    press(control, Qt::Key_Space);
    EXPECT_FALSE(desktop.chosen);
    desktop.choose(true);
    settle();
    EXPECT_TRUE(control.isChecked());
}

TEST_F(DesktopWallpaperCardTest, tellsWhyTheIconsAreStillCovered) {
    click(open());
    desktop.setProblem(u"Plasma's shell does not run"_s);
    settle();
    EXPECT_TRUE(says(u"Plasma's shell does not run, so Tavi covers the icons for now."_s));
    desktop.setProblem({});
    settle();
    EXPECT_FALSE(says(u"Plasma's shell does not run, so Tavi covers the icons for now."_s));
}

TEST_F(DesktopWallpaperCardTest, tellsThatTheUserGaveAnotherOneAndHowOursComesBack) {
    const QString hint = u"Plasma was given another wallpaper since. Turn this off and on to have "
                         u"Tavi's again."_s;
    click(open());
    EXPECT_FALSE(says(hint));
    EXPECT_EQ(desktop.looks, 1) << "it is found out when the card is opened";
    desktop.replace();
    settle();
    EXPECT_TRUE(says(hint));
    desktop.setProblem(u"Plasma's shell does not run"_s);
    settle();
    EXPECT_FALSE(says(hint)) << "the problem comes first";
}

TEST_F(DesktopWallpaperCardTest, tellsThatTheEarlierWallpapersAreNotBack) {
    open();
    desktop.setProblem(u"Plasma did not take its earlier wallpapers back"_s);
    settle();
    EXPECT_TRUE(says(u"Plasma did not take its earlier wallpapers back."_s));
}

TEST_F(DesktopWallpaperCardTest, isOfferedWhereTheDesktopTakesAWallpaperOfOursOnly) {
    const auto isOffered = [this](GeneralPane &pane) {
        const auto entries = pane.searchEntries();
        return std::any_of(entries.begin(), entries.end(),
                           [](const SearchEntry &entry) { return entry.title == title; });
    };
    SettingsContext known = paneContext();
    EXPECT_FALSE(isOffered(show(new GeneralPane(known, u"~/Desktop"_s, background))));
    known.desktopWallpaper = &desktop;
    EXPECT_TRUE(isOffered(show(new GeneralPane(known, u"~/Desktop"_s, background))));
}

} // namespace zeph::ui
