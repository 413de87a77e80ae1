// SPDX-License-Identifier: MIT
#include "adapters/focus/FocusSource.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const FocusSource gnome =
    QuietSetting{u"org.gnome.desktop.notifications"_s, u"show-banners"_s, false};
const FocusSource cinnamon =
    QuietSetting{u"org.cinnamon.desktop.notifications"_s, u"display-notifications"_s, false};
const FocusSource mate = QuietSetting{u"org.mate.NotificationDaemon"_s, u"do-not-disturb"_s, true};

TEST(FocusSource, isTheDesktopsOwnSwitch) {
    EXPECT_EQ(focusSourceFor(u"GNOME"_s), gnome);
    EXPECT_EQ(focusSourceFor(u"X-Cinnamon"_s), cinnamon);
    EXPECT_EQ(focusSourceFor(u"MATE"_s), mate);
    EXPECT_EQ(focusSourceFor(u"XFCE"_s), FocusSource(QuietService::xfconf));
    EXPECT_EQ(focusSourceFor(u"KDE"_s), FocusSource(QuietService::notifications));
}

TEST(FocusSource, isTheFirstKnownOfSeveralNames) {
    EXPECT_EQ(focusSourceFor(u"ubuntu:GNOME"_s), gnome);
    EXPECT_EQ(focusSourceFor(u"GNOME-Classic:GNOME"_s), gnome);
    EXPECT_EQ(focusSourceFor(u"XFCE:GNOME"_s), FocusSource(QuietService::xfconf));
    EXPECT_EQ(focusSourceFor(u"::GNOME:"_s), gnome);
}

TEST(FocusSource, ofADesktopThatOnlyBorrowsANameIsItsOwn) {
    EXPECT_EQ(focusSourceFor(u"Budgie:GNOME"_s), FocusSource(QuietService::notifications));
}

TEST(FocusSource, mindsNeitherCaseNorBlanks) {
    EXPECT_EQ(focusSourceFor(u"xfce"_s), FocusSource(QuietService::xfconf));
    EXPECT_EQ(focusSourceFor(u" cinnamon "_s), cinnamon);
}

TEST(FocusSource, ofAnyOtherDesktopIsTheNotificationService) {
    for (const QString &name : {u""_s, u"sway"_s, u"LXQt"_s, u"i3"_s, u"GNOMEish"_s, u"KDE4"_s}) {
        EXPECT_EQ(focusSourceFor(name), FocusSource(QuietService::notifications))
            << name.toStdString();
    }
}

} // namespace

} // namespace zeph
