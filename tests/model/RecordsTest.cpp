// SPDX-License-Identifier: MIT
#include "model/ContributionLayout.h"
#include "model/DesktopCategory.h"
#include "model/DeviceBattery.h"
#include "model/FocusState.h"
#include "model/WeatherInfo.h"

#include <QStringList>

#include <gmock/gmock.h>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(ContributionLayout, tellsWhatEachShows) {
    QStringList rows;
    for (const ContributionLayout layout : allContributionLayouts) {
        rows << u"%1 \"%2\" %3 years %4 weeks%5"_s.arg(rawValue(layout), pickerLabel(layout))
                    .arg(yearsAsked(layout))
                    .arg(weeksKept(layout).value_or(-1))
                    .arg(isStacked(layout) ? u" stacked"_s : QString());
    }
    const QStringList expected = {u"m3 \"Last 3 months\" 1 years 13 weeks"_s,
                                  u"m6 \"Last 6 months\" 1 years 26 weeks"_s,
                                  u"y1 \"Last year\" 1 years -1 weeks"_s,
                                  u"y2 \"Last 2 years (stacked)\" 2 years -1 weeks stacked"_s,
                                  u"y3 \"Last 3 years (stacked)\" 3 years -1 weeks stacked"_s,
                                  u"y4 \"Last 4 years (stacked)\" 4 years -1 weeks stacked"_s};
    EXPECT_EQ(rows, expected);
}

TEST(ContributionLayout, isReadFromItsTextAlone) {
    for (const ContributionLayout layout : allContributionLayouts) {
        EXPECT_EQ(contributionLayoutFromRaw(rawValue(layout)), layout);
    }
    for (const auto &text : {u"x9"_s, u""_s, u"Y1"_s, u"y1 "_s}) {
        EXPECT_EQ(contributionLayoutFromRaw(text), std::nullopt) << qPrintable(text);
    }
}

TEST(DeviceBattery, choosesItsSymbolByTheFirstWordFound) {
    const std::pair<QString, QString> rows[] = {
        {u"Ann's AirPods Pro"_s, u"airpodspro"_s},
        {u"Studio Headphones"_s, u"airpodspro"_s},
        {u"EARBUDS"_s, u"airpodspro"_s},
        {u"Galaxy Buds2"_s, u"airpodspro"_s},
        {u"Gaming Headset"_s, u"airpodspro"_s},
        {u"Wireless Mouse"_s, u"airpodspro"_s}, // the first row wins
        {u"Wireless Keyboard"_s, u"airpodspro"_s},
        {u"MX Mouse"_s, u"magicmouse"_s},
        {u"Mouse and Keyboard"_s, u"magicmouse"_s},
        {u"Mechanical Keyboard"_s, u"keyboard"_s},
        {u"Keyboard with Trackpad"_s, u"keyboard"_s},
        {u"Big Trackpad"_s, u"rectangle.and.hand.point.up.left"_s},
        {u"Pencil"_s, u"pencil"_s},
        {u"Gamepad"_s, u"battery.75"_s},
        {QString(), u"battery.75"_s}};
    for (const auto &[name, symbol] : rows) {
        EXPECT_EQ((DeviceBattery{name, 50}.symbol()), symbol) << name.toStdString();
    }
}

TEST(DesktopCategory, hasItsNameForItsText) {
    QStringList names;
    for (const DesktopCategory category : allDesktopCategories) {
        names.append(rawValue(category));
        EXPECT_EQ(desktopCategoryFromRaw(rawValue(category)), category);
    }
    EXPECT_EQ(names.join(u' '), u"screenshots images documents archives media folders other"_s);
}

TEST(DesktopCategory, knowsNoOtherText) {
    EXPECT_EQ(desktopCategoryFromRaw(u"Images"_s), std::nullopt);
    EXPECT_EQ(desktopCategoryFromRaw(QString()), std::nullopt);
}

TEST(FocusState, hasItsNameForItsText) {
    EXPECT_EQ(rawValue(FocusState::off), u"off"_s);
    EXPECT_EQ(rawValue(FocusState::on), u"on"_s);
    EXPECT_EQ(rawValue(FocusState::unknown), u"unknown"_s);
    for (const FocusState state : {FocusState::off, FocusState::on, FocusState::unknown}) {
        EXPECT_EQ(focusStateFromRaw(rawValue(state)), state);
    }
}

TEST(FocusState, mapsAnUnrecognisedTextToNoValue) {
    EXPECT_EQ(focusStateFromRaw(u"On"_s), std::nullopt);
    EXPECT_EQ(focusStateFromRaw(u"dnd"_s), std::nullopt);
}

TEST(WeatherInfo, comparesAllItsFields) {
    const WeatherInfo info{20, 19, 3, true, u"Berlin"_s, Date{5}};
    WeatherInfo other = info;
    EXPECT_EQ(other, info);
    other.updated = Date{6};
    EXPECT_NE(other, info);
    other = info;
    other.apparentC.reset();
    EXPECT_NE(other, info);
}

} // namespace zeph
