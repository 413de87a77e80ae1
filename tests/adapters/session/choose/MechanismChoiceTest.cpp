// SPDX-License-Identifier: MIT
#include "adapters/session/choose/MechanismChoice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using enum DrawingMechanism;
using testing::HasSubstr;
using testing::Not;

const WindowManagerOffer kManager{.name = u"Openbox"_s, .knowsDesktopType = true};
const WindowManagerOffer kManagerWithoutDesktops{.name = u"i3"_s, .knowsDesktopType = false};

SessionOffer x11(std::optional<WindowManagerOffer> manager = kManager,
                 std::optional<DesktopProgramOffer> program = {},
                 Compositing compositing = Compositing::none) {
    return {
        .windowManager = std::move(manager), .compositing = compositing, .desktopProgram = program};
}

SessionOffer wayland(const QString &desktop, bool hasLayerShell) {
    return {.displaySystem = DisplaySystem::wayland,
            .currentDesktop = desktop,
            .hasLayerShell = hasLayerShell};
}

SessionOffer allowingPlasma(SessionOffer offer) {
    offer.plasma.isGranted = true;
    return offer;
}

SessionOffer transparent(SessionOffer offer) {
    offer.isTransparent = true;
    return offer;
}

SessionOffer throughXwayland(SessionOffer offer) {
    offer.displaySystem = DisplaySystem::xwayland;
    return offer;
}

struct Row {
    const char *name;
    SessionOffer offer;
    DrawingMechanism mechanism;
};

std::ostream &operator<<(std::ostream &out, const Row &row) {
    return out << row.name;
}

std::string nameOfRow(const testing::TestParamInfo<Row> &row) {
    return row.param.name;
}

class MechanismChoiceTest : public testing::TestWithParam<Row> {};

std::string reasonOf(const SessionOffer &offer) {
    return chooseDrawingWay(offer).reason.toStdString();
}

} // namespace

TEST_P(MechanismChoiceTest, suitsTheSession) {
    EXPECT_EQ(chooseDrawingWay(GetParam().offer).mechanism, GetParam().mechanism);
}

TEST_P(MechanismChoiceTest, tellsWhetherTheIconsShineThrough) {
    EXPECT_TRUE(chooseDrawingWay(transparent(GetParam().offer)).isTransparent);
    EXPECT_EQ(chooseDrawingWay(GetParam().offer).isTransparent, GetParam().offer.isTransparent);
}

TEST_P(MechanismChoiceTest, hasAReasonInOneSentence) {
    const QString reason = chooseDrawingWay(GetParam().offer).reason;
    EXPECT_TRUE(reason.endsWith(u'.')) << reason.toStdString();
    EXPECT_EQ(reason.count(u'.'), 1) << reason.toStdString();
    EXPECT_TRUE(reason.front().isUpper()) << reason.toStdString();
    EXPECT_FALSE(reason.contains(u'%')) << reason.toStdString();
}

INSTANTIATE_TEST_SUITE_P(
    OnX11, MechanismChoiceTest,
    testing::Values(
        Row{"noManager", x11({}), desktopWindow},
        Row{"aManagerThatKnowsDesktops", x11(), desktopWindow},
        Row{"aManagerThatBlends", x11(kManager, {}, Compositing::windowManager), desktopWindow},
        Row{"aManagerWithoutDesktops", x11(kManagerWithoutDesktops), loweredOverride},
        Row{"aManagerWithoutDesktopsBesideACompositor",
            x11(kManagerWithoutDesktops, {}, Compositing::separateProgram), loweredOverride},
        Row{"aManagerWithoutDesktopsThatBlends",
            x11(kManagerWithoutDesktops, {}, Compositing::windowManager), desktopWindow},
        Row{"xfdesktop", x11(kManager, {{DesktopProgram::xfdesktop, true}}), rootPixmap},
        Row{"xfdesktopBlended",
            x11(kManager, {{DesktopProgram::xfdesktop, true}}, Compositing::windowManager),
            rootPixmap},
        Row{"xfdesktopWithoutManager", x11({}, {{DesktopProgram::xfdesktop, true}}), rootPixmap},
        Row{"xfdesktopBesideAManagerWithoutDesktops",
            x11(kManagerWithoutDesktops, {{DesktopProgram::xfdesktop, true}}), rootPixmap},
        Row{"xfdesktopWithoutAPixmap", x11(kManager, {{DesktopProgram::xfdesktop, false}}),
            desktopWindow},
        Row{"xfdesktopWithoutRoomForACopy",
            x11(kManager, {{DesktopProgram::xfdesktop, true, false, false}}), desktopWindow},
        Row{"caja", x11(kManager, {{DesktopProgram::caja, true}}), rootPixmap},
        Row{"cajaWithoutAPixmap", x11(kManager, {{DesktopProgram::caja, false}}), desktopWindow},
        Row{"pcmanfm", x11(kManager, {{DesktopProgram::pcmanfm, true}}), rootPixmap},
        Row{"pcmanfmInOneColour", x11(kManager, {{DesktopProgram::pcmanfm, false}}), desktopWindow},
        Row{"pcmanfmOnTwoDisplays", x11(kManager, {{DesktopProgram::pcmanfm, true, true}}),
            desktopWindow},
        Row{"pcmanfmWithoutRoomForACopy",
            x11(kManager, {{DesktopProgram::pcmanfm, true, false, false}}), desktopWindow},
        Row{"pcmanfmQt", x11(kManager, {{DesktopProgram::pcmanfmQt, true}}), desktopWindow},
        Row{"pcmanfmQtBesideAManagerWithoutDesktops",
            x11(kManagerWithoutDesktops, {{DesktopProgram::pcmanfmQt}}), loweredOverride},
        Row{"nemo",
            x11(kManager, {{DesktopProgram::nemoDesktop, true}}, Compositing::windowManager),
            underDesktopProgram},
        Row{"nemoBesideACompositor",
            x11(kManager, {{DesktopProgram::nemoDesktop}}, Compositing::separateProgram),
            underDesktopProgram},
        Row{"nemoUnblended", x11(kManager, {{DesktopProgram::nemoDesktop}}), desktopWindow},
        Row{"ding",
            x11(kManager, {{DesktopProgram::ding, false, true}}, Compositing::windowManager),
            underDesktopProgram},
        Row{"dingUnblended", x11(kManager, {{DesktopProgram::ding}}), desktopWindow},
        Row{"plasma", x11(kManager, {{DesktopProgram::plasmashell}}, Compositing::windowManager),
            desktopWindow},
        Row{"plasmaAllowed",
            allowingPlasma(x11(kManager, {{DesktopProgram::plasmashell, false, true}})),
            plasmaPictures},
        Row{"plasmaAllowedBesideAManagerWithoutDesktops",
            allowingPlasma(x11(kManagerWithoutDesktops, {{DesktopProgram::plasmashell}})),
            plasmaPictures},
        Row{"aPackageForPlasmaWherePlasmaDoesNotRun",
            allowingPlasma(x11(kManager, {{DesktopProgram::xfdesktop, true}})), rootPixmap},
        Row{"aPackageForPlasmaWithoutAnyDesktop", allowingPlasma(x11()), desktopWindow}),
    nameOfRow);

INSTANTIATE_TEST_SUITE_P(
    OnWayland, MechanismChoiceTest,
    testing::Values(
        Row{"sway", wayland(u"sway"_s, true), layerSurface},
        Row{"aCompositorWithoutAName", wayland({}, true), layerSurface},
        Row{"xfceOnALayer", wayland(u"XFCE"_s, true), layerSurface},
        Row{"plasma", wayland(u"KDE"_s, true), layerSurface},
        Row{"plasmaAllowed", allowingPlasma(wayland(u"KDE"_s, true)), plasmaPictures},
        Row{"aPackageForPlasmaElsewhere", allowingPlasma(wayland(u"sway"_s, true)), layerSurface},
        Row{"gnome", wayland(u"ubuntu:GNOME"_s, false), desktopWindow},
        Row{"aCompositorWithoutLayers", wayland(u"weston"_s, false), desktopWindow},
        Row{"gnomeThroughXwayland",
            throughXwayland({.currentDesktop = u"GNOME"_s, .windowManager = WindowManagerOffer{}}),
            desktopWindow},
        Row{"xwaylandHasNoLayers", throughXwayland({.hasLayerShell = true}), desktopWindow}),
    nameOfRow);

TEST(MechanismReasonTest, namesTheDesktopWhoseIconsAreMeant) {
    EXPECT_THAT(reasonOf(x11(kManager, {{DesktopProgram::xfdesktop, true}})), HasSubstr("Xfce"));
    EXPECT_THAT(reasonOf(x11(kManager, {{DesktopProgram::caja, true}})), HasSubstr("MATE"));
    EXPECT_THAT(reasonOf(x11(kManager, {{DesktopProgram::pcmanfm, true, true}})),
                HasSubstr("one display only"));
    EXPECT_THAT(reasonOf(x11(kManager, {{DesktopProgram::caja, true, false, false}})),
                HasSubstr("no room for a copy"));
    EXPECT_THAT(reasonOf(wayland(u"GNOME"_s, false)), HasSubstr("GNOME"));
    EXPECT_THAT(reasonOf(wayland(u"weston"_s, false)), Not(HasSubstr("GNOME")));
}

TEST(MechanismReasonTest, saysWhenIconsAreCovered) {
    for (const auto program :
         {DesktopProgram::xfdesktop, DesktopProgram::caja, DesktopProgram::pcmanfm,
          DesktopProgram::pcmanfmQt, DesktopProgram::nemoDesktop, DesktopProgram::ding}) {
        EXPECT_THAT(reasonOf(x11(kManager, {{program, false}})), HasSubstr("covers its icons"));
    }
    EXPECT_THAT(reasonOf(x11(kManager, {{DesktopProgram::plasmashell}})),
                HasSubstr("covers the icons until you allow"));
}

TEST(MechanismReasonTest, saysWhatStandsAgainstOurWallpaperInPlasma) {
    for (SessionOffer offer :
         {x11(kManager, {{DesktopProgram::plasmashell}}), wayland(u"KDE"_s, true)}) {
        offer.plasma.problem = u"Plasma's shell does not run"_s;
        EXPECT_EQ(reasonOf(offer), "Plasma's shell does not run, so Tavi lies above the desktop of "
                                   "Plasma and covers its icons.");
    }
}

TEST(MechanismReasonTest, saysThatIconsShineThroughATransparentWallpaper) {
    for (const auto program :
         {DesktopProgram::xfdesktop, DesktopProgram::caja, DesktopProgram::pcmanfm,
          DesktopProgram::pcmanfmQt, DesktopProgram::plasmashell}) {
        for (const bool sharesPicture : {true, false}) {
            const SessionOffer offer = x11(kManager, {{program, sharesPicture}});
            EXPECT_THAT(reasonOf(transparent(offer)), HasSubstr("shine through it"));
            EXPECT_EQ(chooseDrawingWay(transparent(offer)).mechanism,
                      chooseDrawingWay(offer).mechanism);
        }
    }
    EXPECT_THAT(reasonOf(transparent(wayland(u"KDE"_s, true))), HasSubstr("of Plasma"));
}

TEST(MechanismReasonTest, saysTheSameOfATransparentWallpaperWhereItLiesInTheSamePlace) {
    for (const SessionOffer &offer :
         {x11(), x11({}), x11(kManagerWithoutDesktops), wayland(u"sway"_s, true),
          x11(kManager, {{DesktopProgram::nemoDesktop}}, Compositing::windowManager),
          allowingPlasma(wayland(u"KDE"_s, true))}) {
        EXPECT_EQ(chooseDrawingWay(transparent(offer)).mechanism,
                  chooseDrawingWay(offer).mechanism);
        EXPECT_EQ(reasonOf(transparent(offer)), reasonOf(offer));
    }
}

TEST(DesktopProgramTest, isKnownByTheClassOfItsWindow) {
    EXPECT_EQ(desktopProgramOf(u"Xfdesktop"_s, {}), DesktopProgram::xfdesktop);
    EXPECT_EQ(desktopProgramOf(u"Caja"_s, u"org.mate.Caja"_s), DesktopProgram::caja);
    EXPECT_EQ(desktopProgramOf(u"Pcmanfm"_s, {}), DesktopProgram::pcmanfm);
    EXPECT_EQ(desktopProgramOf(u"pcmanfm-qt"_s, {}), DesktopProgram::pcmanfmQt);
    EXPECT_EQ(desktopProgramOf(u"Nemo-desktop"_s, {}), DesktopProgram::nemoDesktop);
    EXPECT_EQ(desktopProgramOf(u"plasmashell"_s, {}), DesktopProgram::plasmashell);
}

TEST(DesktopProgramTest, isKnownByItsIdWhereItRunsInAnInterpreter) {
    EXPECT_EQ(desktopProgramOf(u"Gjs"_s, u"com.rastersoft.ding"_s), DesktopProgram::ding);
    EXPECT_EQ(desktopProgramOf(u"Gjs"_s, u"org.example.Other"_s), std::nullopt);
}

TEST(DesktopProgramTest, isNoneThatDrawsNoIcons) {
    EXPECT_EQ(desktopProgramOf(u"conky"_s, {}), std::nullopt);
    EXPECT_EQ(desktopProgramOf({}, {}), std::nullopt);
}

} // namespace zeph
