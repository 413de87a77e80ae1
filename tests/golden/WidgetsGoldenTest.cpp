// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"
#include "golden/WidgetSheet.h"

#include "presentation/widgets/WallpaperContentView.h"

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

} // namespace zeph
