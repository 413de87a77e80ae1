// SPDX-License-Identifier: MIT
#include "adapters/session/open/SessionKinds.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(SessionKinds, swayTellsForItselfWhereverItWasStarted) {
    const QString socket = u"/run/user/1000/sway-ipc.1000.7.sock"_s;
    EXPECT_EQ(partsKind(socket, u"sway"_s), PartsKind::sway);
    EXPECT_EQ(partsKind(socket, u"KDE"_s), PartsKind::sway);
    EXPECT_EQ(partsKind(socket, {}), PartsKind::sway);
}

TEST(SessionKinds, kwinTellsForPlasmaAndTheProtocolForAllOthers) {
    EXPECT_EQ(partsKind({}, u"KDE"_s), PartsKind::kwin);
    EXPECT_EQ(partsKind({}, u"neon:KDE"_s), PartsKind::kwin);
    EXPECT_EQ(partsKind({}, u"GNOME"_s), PartsKind::protocol);
    EXPECT_EQ(partsKind({}, u"KDElike"_s), PartsKind::protocol);
    EXPECT_EQ(partsKind({}, {}), PartsKind::protocol);
}

TEST(SessionKinds, plasmaIsWrappedAroundBothDisplaySystems) {
    EXPECT_EQ(desktopKind(DisplaySystem::x11, u"KDE"_s), DesktopKind::plasma);
    EXPECT_EQ(desktopKind(DisplaySystem::wayland, u"KDE"_s), DesktopKind::plasma);
    EXPECT_EQ(desktopKind(DisplaySystem::x11, u"XFCE"_s), DesktopKind::plain);
    EXPECT_EQ(desktopKind(DisplaySystem::wayland, u"sway"_s), DesktopKind::plain);
}

TEST(SessionKinds, theXServerOfACompositorIsToldOfInGnomesWay) {
    EXPECT_EQ(desktopKind(DisplaySystem::xwayland, u"ubuntu:GNOME"_s), DesktopKind::gnome);
    EXPECT_EQ(desktopKind(DisplaySystem::xwayland, u"KDE"_s), DesktopKind::gnome);
    EXPECT_EQ(desktopKind(DisplaySystem::xwayland, {}), DesktopKind::gnome);
    EXPECT_EQ(desktopKind(DisplaySystem::x11, u"GNOME"_s), DesktopKind::plain);
}

TEST(SessionKinds, cinnamonIsKnownByEitherOfItsNames) {
    EXPECT_TRUE(isCinnamon(u"X-Cinnamon"_s));
    EXPECT_TRUE(isCinnamon(u"Example:cinnamon"_s));
    EXPECT_FALSE(isCinnamon(u"GNOME"_s));
    EXPECT_FALSE(isCinnamon(u"Cinnamonlike"_s));
    EXPECT_FALSE(isCinnamon({}));
}

} // namespace zeph
