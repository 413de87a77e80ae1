// SPDX-License-Identifier: MIT
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
                                     "metadata::place");
    EXPECT_EQ(icons.origin, DesktopIcons::Origin::desktop);
    EXPECT_EQ(icons.places, (std::vector<QPointF>{{166, 222}, {10, 22}}));
    EXPECT_EQ(icons.unplaced, 0);
}

TEST(ListedIcons, withoutAPlaceAreLaidOutByTheProgram) {
    const auto icons = listedIconsIn("one\t6\t(regular)\ntwo\t6\t(regular)\tmetadata::place=\n"
                                     "metadata::place=1,1\t6\t(regular)\n"
                                     "four\t6\t(regular)\tmetadata::place=1,x\n"
                                     "five\t6\t(regular)\tmetadata::place=7\n",
                                     "metadata::place");
    EXPECT_TRUE(icons.places.empty());
    EXPECT_EQ(icons.unplaced, 5);
}

} // namespace zeph
