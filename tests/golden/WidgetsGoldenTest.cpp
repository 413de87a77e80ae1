// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"
#include "golden/WidgetSheet.h"

#include "widgets/WallpaperContentView.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

std::string kindName(const testing::TestParamInfo<WidgetKind> &info) {
    return rawValue(info.param).toStdString();
}

} // namespace

class GoldenWidgets : public WidgetSheet, public testing::WithParamInterface<WidgetKind> {
protected:
    /// The widget small, medium and large.
    QImage allSizes(WidgetKind kind) {
        std::vector<View> sizes;
        for (const auto size :
             {WidgetSizeOption::small, WidgetSizeOption::medium, WidgetSizeOption::large}) {
            preferences.setSize(size, kind);
            sizes.push_back(WallpaperContentView(context, available).sizedWidget(kind));
        }
        return sheet(sizes);
    }
};

class WidgetsOfAMorning : public GoldenWidgets {};
class WidgetsInManyScripts : public GoldenWidgets {};
class WidgetsBeforeAnyData : public GoldenWidgets {};

TEST_P(WidgetsOfAMorning, lookAsExpected) {
    fillMorning();
    state.apod = APODInfo{u"A Spiral Seen Nearly Edge-on"_s, u"2026-05-14"_s, encodedSky()};
    EXPECT_TRUE(matchesGolden(allSizes(GetParam()), u"widget-"_s + rawValue(GetParam())));
}

INSTANTIATE_TEST_SUITE_P(
    All, WidgetsOfAMorning,
    testing::Values(WidgetKind::clock, WidgetKind::weather, WidgetKind::sun, WidgetKind::airQuality,
                    WidgetKind::meeting, WidgetKind::currentApp, WidgetKind::topApp,
                    WidgetKind::appRanking, WidgetKind::rhythm, WidgetKind::desktop,
                    WidgetKind::machine, WidgetKind::reminders, WidgetKind::countdowns,
                    WidgetKind::progress, WidgetKind::devices, WidgetKind::quote,
                    WidgetKind::onThisDay, WidgetKind::nasa, WidgetKind::iss),
    kindName);

TEST_P(WidgetsInManyScripts, lookAsExpected) {
    fillWorldly();
    EXPECT_TRUE(
        matchesGolden(allSizes(GetParam()), u"widget-"_s + rawValue(GetParam()) + u"-worldly"_s));
}

INSTANTIATE_TEST_SUITE_P(WithTextsOfOthers, WidgetsInManyScripts,
                         testing::Values(WidgetKind::weather, WidgetKind::meeting,
                                         WidgetKind::currentApp, WidgetKind::topApp,
                                         WidgetKind::appRanking, WidgetKind::machine,
                                         WidgetKind::reminders, WidgetKind::countdowns,
                                         WidgetKind::devices, WidgetKind::quote,
                                         WidgetKind::onThisDay, WidgetKind::iss),
                         kindName);

TEST_P(WidgetsBeforeAnyData, lookAsExpected) {
    EXPECT_TRUE(
        matchesGolden(allSizes(GetParam()), u"widget-"_s + rawValue(GetParam()) + u"-waiting"_s));
}

INSTANTIATE_TEST_SUITE_P(WithAWaitingSentence, WidgetsBeforeAnyData,
                         testing::Values(WidgetKind::weather, WidgetKind::sun,
                                         WidgetKind::airQuality, WidgetKind::meeting,
                                         WidgetKind::currentApp, WidgetKind::topApp,
                                         WidgetKind::appRanking, WidgetKind::rhythm,
                                         WidgetKind::desktop, WidgetKind::machine,
                                         WidgetKind::reminders),
                         kindName);

TEST_F(WidgetSheet, quoteThatMixesDirectionsReadsInOne) {
    state.quote = QuoteInfo{u"We gave each other the old greeting on the stairs, she said, the "
                            u"שלום of the mornings (and of the evenings too)."_s,
                            u"Mara Lindqvist"_s};
    state.onThisDay = OnThisDayInfo{
        u"1948"_s, u"نص عربي طويل يملأ سطرين على الأقل حتى نرى كيف تلتف الكلمات من اليمين "
                   u"Quiet Desktops في هذا المكان."_s};
    const WallpaperContentView content(context, available);
    EXPECT_TRUE(matchesGolden(
        sheet({content.widget(WidgetKind::quote), content.widget(WidgetKind::onThisDay)}),
        u"widget-paragraphs"_s));
}

TEST_F(WidgetSheet, sentencesAndHeadingsEndBeforeTheyRunAway) {
    fillOddAccounts();
    state.calendar = CalendarSummary{
        at(11, 30, 0, 5, 14),
        u"Quarterly review of everything that was planned, done, left undone and forgotten, with "
        u"all teams, their guests and whoever else passes by"_s,
        3, 66};
    const WallpaperContentView content(context, available);
    EXPECT_TRUE(matchesGolden(
        sheet({content.widget(WidgetKind::meeting), content.sizedWidget(WidgetKind::currentApp),
               content.widget(WidgetKind::revenue)}),
        u"widget-long"_s));
}

} // namespace zeph
