// SPDX-License-Identifier: MIT
#include "adapters/icons/IconSettings.h"
#include "adapters/icons/ListedIcons.h"
#include "adapters/icons/PcmanfmIcons.h"
#include "adapters/icons/XfdesktopIcons.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

constexpr double kXfceCell = 2.2 * 48 + 8;

const QByteArray kArrangement = R"([xfdesktop-version-4.10.3+-rcfile_format]
4.10.3+=true

[/home/ada/Desktop/notes.txt]
row=5
col=1

[Trash]
row=0
col=0
)";

QByteArray settingsWith(const QByteArray &properties) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-desktop" version="1.0">
  <property name="backdrop" type="empty"><property name="style" type="int" value="0"/></property>
  <property name="desktop-icons" type="empty">)" +
           properties + R"(
    <property name="file-icons" type="empty">
      <property name="style" type="int" value="0"/>
      <property name="icon-size" type="uint" value="24"/>
    </property>
  </property>
</channel>)";
}

} // namespace

TEST(XfdesktopIcons, lieInCellsOfTheWorkArea) {
    const auto icons = xfdesktopIconsIn(kArrangement, {});
    EXPECT_EQ(icons.origin, DesktopIcons::Origin::workArea);
    EXPECT_EQ(icons.cell, QSizeF(kXfceCell, kXfceCell));
    EXPECT_EQ(icons.places, (std::vector<QPointF>{{8 + kXfceCell, 8 + 5 * kXfceCell}, {8, 8}}));
    EXPECT_EQ(icons.unplaced, 0);
}

TEST(XfdesktopIcons, areNoNarrowerThanTheProgramDrawsThem) {
    // Measured from one column to the next.
    for (const auto &[size, pitch] : std::vector<std::pair<double, double>>{
             {16, 42}, {32, 72}, {48, 102.5}, {64, 139}, {96, 211}}) {
        const double cell = xfdesktopIconsIn({}, {.iconSize = size}).cell.width();
        EXPECT_GE(cell, pitch);
        EXPECT_LE(cell, 1.13 * pitch);
    }
}

TEST(XfdesktopIcons, areNoneWhileTheyAreHidden) {
    EXPECT_TRUE(xfdesktopIconsIn(kArrangement, {.areShown = false}).places.empty());
}

TEST(XfdesktopIcons, withoutAWholeCellCountForNothing) {
    for (const char *text : {"[a]\nrow=1\n", "[a]\nrow=1\ncol=-1\n", "[a]\nrow=x\ncol=1\n",
                             "[a]\nrow=1\ncol=99999999999\n", "row=1\ncol=1\n", "[a]\nrow 1\n"}) {
        EXPECT_TRUE(xfdesktopIconsIn(text, {}).places.empty()) << text;
    }
}

TEST(XfdesktopIconSettings, areThoseOfTheIconsAlone) {
    EXPECT_EQ(xfdesktopSettingsIn(settingsWith("")), XfdesktopIconSettings());
    EXPECT_EQ(xfdesktopSettingsIn(settingsWith(
                  R"(<property name="style" type="int" value="0"/>
                     <property name="icon-size" type="uint" value="64"/>)")),
              (XfdesktopIconSettings{.areShown = false, .iconSize = 64}));
    EXPECT_TRUE(
        xfdesktopSettingsIn(settingsWith(R"(<property name="style" type="int" value="2"/>)"))
            .areShown);
}

TEST(XfdesktopIconSettings, ofADamagedFileAreTheProgramsOwn) {
    for (const char *text : {"", "<", "<channel><property", "no markup"}) {
        EXPECT_EQ(xfdesktopSettingsIn(text), XfdesktopIconSettings()) << text;
    }
    EXPECT_EQ(xfdesktopSettingsIn(
                  settingsWith(R"(<property name="icon-size" type="uint" value="100000"/>)")),
              XfdesktopIconSettings());
}

TEST(PcmanfmIcons, lieWhereTheUserMovedThem) {
    const auto icons = pcmanfmIconsIn("[*]\nshow_trash=0\n[notes.txt]\nx=1000\ny=60\n", 3);
    EXPECT_EQ(icons.places, (std::vector<QPointF>{{1000, 60}}));
    EXPECT_EQ(icons.unplaced, 2) << "the program lays out the others";
}

TEST(PcmanfmIcons, areMoreWithThoseThatAreNoFiles) {
    EXPECT_EQ(pcmanfmIconsIn("[*]\nshow_trash=1\nshow_documents=1\n", 1).unplaced, 3);
}

TEST(PcmanfmIcons, withoutAPlaceCountForNothing) {
    for (const char *text : {"[a]\nx=1\n", "[a]\nx=1\ny=\n", "[a]\nx=1\ny=2000000\n"}) {
        EXPECT_TRUE(pcmanfmIconsIn(text, 0).places.empty()) << text;
    }
    EXPECT_EQ(pcmanfmIconsIn("[a]\nx=1\ny=1\n", 0).unplaced, 0) << "a file that is gone";
}

TEST(ListedIcons, lieAboutTheirPictures) {
    const auto icons = listedIconsIn("notes.txt\t6\t(regular)\tmetadata::place=220,222\n"
                                     "a folder\t4096\t(directory)\tmetadata::place=64,22\n",
                                     "metadata::place", cajaGrid());
    EXPECT_EQ(icons.origin, DesktopIcons::Origin::desktop);
    EXPECT_EQ(icons.places, (std::vector<QPointF>{{166, 222}, {10, 22}}));
    EXPECT_EQ(icons.unplaced, 0);
}

TEST(ListedIcons, withoutAPlaceAreLaidOutByTheProgram) {
    const auto icons = listedIconsIn("one\t6\t(regular)\ntwo\t6\t(regular)\tmetadata::place=\n"
                                     "metadata::place=1,1\t6\t(regular)\n"
                                     "four\t6\t(regular)\tmetadata::place=1,x\n"
                                     "five\t6\t(regular)\tmetadata::place=7\n",
                                     "metadata::place", cajaGrid());
    EXPECT_TRUE(icons.places.empty());
    EXPECT_EQ(icons.unplaced, 5);
}

TEST(IconSettings, tellHowManyIconsAreNoFiles) {
    EXPECT_EQ(iconsBesideFilesIn("org.mate.caja.desktop computer-icon-visible false\n"
                                 "org.mate.caja.desktop home-icon-visible true\n"
                                 "org.mate.caja.desktop home-icon-name 'true'\n"
                                 "org.mate.caja.desktop trash-icon-visible false\n"
                                 "org.mate.caja.desktop volumes-visible true\n"),
              1);
    EXPECT_EQ(iconsBesideFilesIn("org.nemo.desktop trash-icon-visible false\n"), 0);
    for (const QByteArray damaged : {"", "\n", "trash-icon-visible", "a b", " \n  \n"}) {
        EXPECT_EQ(iconsBesideFilesIn(damaged), std::nullopt) << damaged.constData();
    }
}

TEST(ExtensionIconSettings, areThoseOfTheProgramWithoutAChoice) {
    const auto settings = extensionIconSettingsIn("");
    EXPECT_EQ(settings.iconsBesideFiles, 2);
    EXPECT_FALSE(settings.areLaidOutFromRight);
    EXPECT_GE(settings.grid.cell.width(), 128);
    EXPECT_LE(settings.grid.cell.width(), 142);
    EXPECT_EQ(settings.grid.cell.height(), 114);
    EXPECT_EQ(extensionIconSettingsIn("x icon-size 'giant'\n").grid.cell, settings.grid.cell);
}

TEST(ExtensionIconSettings, tellTheGridAndTheCorner) {
    const auto settings =
        extensionIconSettingsIn("org.gnome.shell.extensions.ding icon-size 'tiny'\n"
                                "org.gnome.shell.extensions.ding show-home false\n"
                                "org.gnome.shell.extensions.ding start-corner 'bottom-right'\n");
    EXPECT_EQ(settings.iconsBesideFiles, 1);
    EXPECT_TRUE(settings.areLaidOutFromRight);
    EXPECT_EQ(settings.grid.cell.height(), 88);
}

TEST(IconExtension, isOneLineOfTheList) {
    EXPECT_TRUE(listsIconExtension("a@b.example\nding@rastersoft.com\n"));
    EXPECT_FALSE(listsIconExtension("gtk4-ding@rastersoft.com\n"));
    EXPECT_FALSE(listsIconExtension(""));
}

} // namespace zeph
