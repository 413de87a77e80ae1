// SPDX-License-Identifier: MIT
#include "golden/GoldenImage.h"
#include "golden/Painted.h"
#include "golden/SampleDay.h"

#include "presentation/palette/BackgroundPresets.h"
#include "presentation/view/Views.h"
#include "presentation/widgets/WallpaperContentView.h"

#include <cmath>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr QSizeF available(1184, 744);
constexpr double border = 24;

std::string kindName(const testing::TestParamInfo<WidgetKind> &info) {
    return rawValue(info.param).toStdString();
}

} // namespace

class GoldenWidgets : public SampleDay, public testing::WithParamInterface<WidgetKind> {
protected:
    GoldenWidgets() { palette = Palette::custom(BackgroundPresets::colorFor({}), FocusState::off); }

    /// The widget small, medium and large under each other, two device pixels a point.
    QImage allSizes(WidgetKind kind) {
        std::vector<View> sizes;
        for (const auto size :
             {WidgetSizeOption::small, WidgetSizeOption::medium, WidgetSizeOption::large}) {
            preferences.setSize(size, kind);
            sizes.push_back(WallpaperContentView(context, available).sizedWidget(kind));
        }
        const View sheet = padded(verticalStack(border, sizes), {border, border});
        const LayoutContext layout{painted.metrics()};
        const QSizeF natural = sheet.measure({}, layout);
        const QSize size(static_cast<int>(std::ceil(natural.width())),
                         static_cast<int>(std::ceil(natural.height())));
        Scene scene;
        scene.items.emplace_back(
            ShapeItem{QRectF(QPointF(), size), 0, Fill{BackgroundPresets::colorFor({}), {}}, {}});
        sheet.place(QRectF(QPointF(), natural), layout, scene.items);
        return painted.opaque(scene, size, 2);
    }

    Painted painted;
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
