// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"
#include "widgets/WidgetFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

using DesktopWidget = WidgetFixture;
using MachineWidget = WidgetFixture;
using DevicesWidget = WidgetFixture;
using ProgressWidget = WidgetFixture;

TEST_F(DesktopWidget, asksForAccess) {
    EXPECT_EQ(texts(desktopWidget(context)),
              (QStringList{u"YOUR DESKTOP"_s, u"Desktop tidiness needs file access"_s}));
    const TextItem headline =
        textItem(desktopWidget(context), u"Desktop tidiness needs file access"_s);
    EXPECT_EQ(headline.style.font.size, 16);
    expectColor(headline.style.color, textColor(0.9));
}

TEST_F(DesktopWidget, speaksOfOneItemInTheSingular) {
    DesktopSummary desktop{7, {}, 0, true};
    for (const DesktopCategory category : allDesktopCategories) {
        desktop.counts[category] = 1;
    }
    state.desktop = desktop;
    EXPECT_EQ(texts(desktopWidget(context)).mid(2),
              (QStringList{u"1 screenshot"_s, u"1 image"_s, u"1 document"_s, u"1 archive"_s,
                           u"1 media file"_s, u"1 folder"_s, u"1 other file"_s}));
    EXPECT_EQ(symbols(desktopWidget(context)),
              (QStringList{u"camera.viewfinder"_s, u"photo"_s, u"doc.text"_s, u"archivebox"_s,
                           u"play.rectangle"_s, u"folder"_s, u"doc"_s}));
}

TEST_F(DesktopWidget, speaksOfMoreInThePlural) {
    DesktopSummary desktop{14, {}, 0, true};
    for (const DesktopCategory category : allDesktopCategories) {
        desktop.counts[category] = 2;
    }
    state.desktop = desktop;
    EXPECT_EQ(texts(desktopWidget(context)).mid(2),
              (QStringList{u"2 screenshots"_s, u"2 images"_s, u"2 documents"_s, u"2 archives"_s,
                           u"2 media"_s, u"2 folders"_s, u"2 other"_s}));
}

TEST_F(DesktopWidget, leavesOutWhatIsNotThere) {
    state.desktop =
        DesktopSummary{3, {{DesktopCategory::images, 0}, {DesktopCategory::folders, 3}}, 0, true};
    EXPECT_EQ(texts(desktopWidget(context)).mid(1),
              (QStringList{u"3 items on your Desktop · tidy enough"_s, u"3 folders"_s}));
}

TEST_F(MachineWidget, showsSixChipsInOrder) {
    state.battery = BatteryInfo{82, false, true, {}, {}, {}, true};
    state.load = SystemLoad{0.12, 0, 0, 0.48};
    state.disk = DiskInfo{212'000'000'000, 512'000'000'000};
    state.network = NetworkThroughput{0, 2048, u"Attic"_s};
    state.uptimeSeconds = 93600.0;
    EXPECT_EQ(texts(machineWidget(context)),
              (QStringList{u"YOUR MACHINE"_s, u"Plugged in · 82%"_s, u"12% CPU · cool"_s,
                           u"48% memory in use"_s, u"212 GB free of 512 GB"_s, u"Attic · ↓2 KB/s"_s,
                           u"Awake for 1d 2h"_s}));
    EXPECT_EQ(symbols(machineWidget(context)),
              (QStringList{u"battery.100"_s, u"cpu"_s, u"memorychip"_s, u"internaldrive"_s,
                           u"wifi"_s, u"powercord"_s}));
}

TEST_F(MachineWidget, keepsTheFullBatterySymbolWhateverTheLevel) {
    state.battery = BatteryInfo{3, false, false, {}, {}, {}, true};
    EXPECT_EQ(symbols(machineWidget(context)).front(), u"battery.100"_s);
}

TEST_F(MachineWidget, speaksOfTheNetworkWhenItHasNoName) {
    state.network = NetworkThroughput{0, 1'500'000, {}};
    EXPECT_TRUE(texts(machineWidget(context)).at(5).startsWith(u"Network · ↓1.4 MB/s"_s));
}

TEST_F(DevicesWidget, showsEachDeviceInOrder) {
    state.deviceBatteries =
        std::vector<DeviceBattery>{{u"Travel Mouse"_s, 64}, {u"Desk Keyboard"_s, 100}};
    EXPECT_EQ(texts(devicesWidget(context)),
              (QStringList{u"YOUR DEVICES"_s, u"Travel Mouse 64%"_s, u"Desk Keyboard 100%"_s}));
    EXPECT_EQ(symbols(devicesWidget(context)), (QStringList{u"magicmouse"_s, u"keyboard"_s}));
}

TEST_F(ProgressWidget, isZeroAtTheStartOfTheYear) {
    state.now = at(0, 0, 0, 1, 1);
    EXPECT_EQ(texts(progressWidget(context)),
              (QStringList{u"TIME PASSING"_s, u"2026"_s, u"0%"_s, u"January"_s, u"0%"_s}));
}

TEST_F(ProgressWidget, cutsThePercentage) {
    state.now = at(23, 59, 59, 12, 31);
    const QStringList drawn = texts(progressWidget(context));
    EXPECT_EQ(drawn.value(2), u"99%"_s);
    EXPECT_EQ(drawn.value(4), u"99%"_s);
}

TEST_F(ProgressWidget, drawsTwoBarsOnTheirTracks) {
    state.now = at(0, 0, 0, 9, 16);
    const View progress = progressWidget(context);
    const std::vector<ShapeItem> bars = shapes(progress);
    ASSERT_EQ(bars.size(), 4U);
    EXPECT_EQ(bars[2].rect.size(), QSizeF(220, 8));
    EXPECT_EQ(bars[2].cornerRadius, 6);
    expectColor(bars[2].fill->start, textColor(0.08));
    EXPECT_NEAR(bars[3].rect.width(), 110, 0.01);
    EXPECT_EQ(bars[3].rect.left(), bars[2].rect.left());
    expectColor(bars[3].fill->start, palette.accent);
    expectColor(*bars[3].fill->end, palette.accent.opacity(0.55));
    EXPECT_DOUBLE_EQ(bars[2].rect.top() - bars[0].rect.top(), lineHeight(13) + 12);
}

TEST_F(ProgressWidget, alignsLabelsAndPercentages) {
    const View progress = progressWidget(context);
    const TextItem year = textItem(progress, u"2026"_s);
    EXPECT_EQ(year.style.font.size, 13);
    EXPECT_EQ(year.style.font.weight, FontWeight::medium);
    expectColor(year.style.color, textColor(0.8));
    const TextItem percent = textItem(progress, u"19%"_s);
    EXPECT_EQ(percent.style.font.size, 12);
    EXPECT_EQ(percent.style.font.weight, FontWeight::light);
    EXPECT_TRUE(percent.style.font.evenDigits);
    expectColor(percent.style.color, textColor(0.65));
    EXPECT_EQ(percent.origin.x() + metrics.size(u"19%"_s, percent.style.font).width(),
              naturalSize(progress).width());
    EXPECT_EQ(shapes(progress).front().rect.left() - year.origin.x(), 76 + 12);
}

} // namespace zeph
