// SPDX-License-Identifier: MIT
#include "widgets/WallpaperContentView.h"

#include "widgets/WidgetFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

class WallpaperContent : public WidgetFixture {
protected:
    /// The rows as texts, those of cards with all their cards.
    static QStringList rows(const std::vector<WidgetKind> &kinds) {
        QStringList texts;
        for (const auto &row : WallpaperContentView::flowRows(kinds)) {
            if (const auto *one = std::get_if<WallpaperContentView::WidgetRow>(&row)) {
                texts << rawValue(one->kind);
                continue;
            }
            QStringList cards;
            for (const WidgetKind kind :
                 std::get<WallpaperContentView::IntegrationCardsRow>(row).kinds) {
                cards << rawValue(kind);
            }
            texts << cards.join(u'+');
        }
        return texts;
    }

    WallpaperContentView content{context, {1200, 700}};
};

TEST_F(WallpaperContent, adjacentCardsShareOneRow) {
    EXPECT_EQ(rows({WidgetKind::quote, WidgetKind::ahrefs, WidgetKind::reddit, WidgetKind::rhythm}),
              (QStringList{u"quote"_s, u"ahrefs+reddit"_s, u"rhythm"_s}));
}

TEST_F(WallpaperContent, aWidgetBetweenCardsSplitsThem) {
    EXPECT_EQ(rows({WidgetKind::ahrefs, WidgetKind::rhythm, WidgetKind::reddit, WidgetKind::polar}),
              (QStringList{u"ahrefs"_s, u"rhythm"_s, u"reddit+polar"_s}));
}

TEST_F(WallpaperContent, everyIntegrationCardGoesIntoTheBlock) {
    const std::vector<WidgetKind> cards{
        WidgetKind::ahrefs,      WidgetKind::coingecko, WidgetKind::hackernews, WidgetKind::reddit,
        WidgetKind::producthunt, WidgetKind::bluesky,   WidgetKind::currency,   WidgetKind::gumroad,
        WidgetKind::polar,       WidgetKind::vercel,    WidgetKind::netlify};
    EXPECT_EQ(rows(cards).size(), 1);
}

TEST_F(WallpaperContent, noKindsMakeNoRows) {
    EXPECT_TRUE(rows({}).isEmpty());
}

TEST_F(WallpaperContent, withoutWidgetsNothingIsDrawn) {
    EXPECT_TRUE(draw(content.body({})).empty());
    EXPECT_EQ(naturalSize(content.body({})), QSizeF(0, 0));
}

TEST_F(WallpaperContent, theClockAloneStandsAtTheBottomLeft) {
    const View body = content.body({WidgetKind::clock});
    const double clockHeight = naturalSize(content.widget(WidgetKind::clock)).height();
    EXPECT_EQ(textItem(body, u"Good morning"_s).origin, QPointF(0, 700 - clockHeight));
}

TEST_F(WallpaperContent, theClockKeepsItsCornerInAnyOrder) {
    const View body = content.body({WidgetKind::clock, WidgetKind::meeting, WidgetKind::topApp});
    const double clockHeight = naturalSize(content.widget(WidgetKind::clock)).height();
    EXPECT_EQ(textItem(body, u"Good morning"_s).origin, QPointF(0, 700 - clockHeight));
    EXPECT_EQ(symbolItem(body, u"calendar"_s).box.center().y(), lineHeight(17) / 2);
}

TEST_F(WallpaperContent, widgetsStandTwentyFourPointsApart) {
    const View body = content.body({WidgetKind::meeting, WidgetKind::reminders});
    EXPECT_EQ(textItem(body, u"REMINDERS"_s).origin.y(),
              naturalSize(content.widget(WidgetKind::meeting)).height() + 24);
}

TEST_F(WallpaperContent, withoutTheClockNothingIsPinned) {
    const View body = content.body({WidgetKind::reminders, WidgetKind::meeting});
    EXPECT_LT(naturalSize(body).height(), 200);
}

TEST_F(WallpaperContent, whatFitsIsNotCutOff) {
    EXPECT_TRUE(content.cutOff({}, {metrics}).empty());
    EXPECT_TRUE(
        content.cutOff({WidgetKind::meeting, WidgetKind::machine, WidgetKind::clock}, {metrics})
            .empty());
}

TEST_F(WallpaperContent, aWidgetExactlyAsLargeAsTheAreaIsNotCutOff) {
    const QSizeF size = naturalSize(content.widget(WidgetKind::machine));
    const auto cutOff = [this](const QSizeF &available) {
        return WallpaperContentView(context, available).cutOff({WidgetKind::machine}, {metrics});
    };
    EXPECT_TRUE(cutOff(size).empty());
    EXPECT_EQ(cutOff(size - QSizeF(1, 0)), std::vector{WidgetKind::machine});
    EXPECT_EQ(cutOff(size - QSizeF(0, 1)), std::vector{WidgetKind::machine});
}

TEST_F(WallpaperContent, theColumnsBeyondTheRightEdgeAreCutOff) {
    const double width = naturalSize(content.widget(WidgetKind::meeting)).width();
    const WallpaperContentView narrow(context, {width, 60});
    EXPECT_EQ(
        narrow.cutOff({WidgetKind::meeting, WidgetKind::topApp, WidgetKind::weather}, {metrics}),
        (std::vector{WidgetKind::topApp, WidgetKind::weather}));
}

TEST_F(WallpaperContent, aFirstWidgetThatReachesIntoTheClockIsCutOff) {
    const double above = naturalSize(content.widget(WidgetKind::machine)).height();
    const double below = naturalSize(content.widget(WidgetKind::clock)).height();
    const std::vector kinds{WidgetKind::machine, WidgetKind::clock};
    EXPECT_TRUE(
        WallpaperContentView(context, {1200, above + below}).cutOff(kinds, {metrics}).empty());
    EXPECT_EQ(WallpaperContentView(context, {1200, above + below - 2}).cutOff(kinds, {metrics}),
              std::vector{WidgetKind::machine});
}

TEST_F(WallpaperContent, aBlockOfCardsIsCutOffAsAWhole) {
    SimpleIntegrationStats stats;
    stats.updated = at(9, 0);
    stats.headline = u"h"_s;
    stats.provider = u"reddit"_s;
    SimpleIntegrationStats other = stats;
    other.provider = u"bluesky"_s;
    state.simpleStats = std::vector{stats, other};
    const std::vector both{WidgetKind::reddit, WidgetKind::bluesky};
    const WallpaperContentView flat(context, {1200, 4});
    EXPECT_EQ(flat.cutOff(both, {metrics}), both);
    const WallpaperContentView narrow(context, {491, 600});
    EXPECT_EQ(narrow.cutOff(both, {metrics}), both) << "the second stands in a column of its own";
    const WallpaperContentView wide(context, {492, 600});
    EXPECT_TRUE(wide.cutOff(both, {metrics}).empty());
}

TEST_F(WallpaperContent, whatDrawsNothingIsNotCutOff) {
    const WallpaperContentView none(context, {0, 0});
    EXPECT_TRUE(none.cutOff({WidgetKind::reddit, WidgetKind::quote}, {metrics}).empty());
}

TEST_F(WallpaperContent, withoutHeightEveryWidgetOpensItsOwnColumn) {
    const WallpaperContentView flat(context, {1200, 0});
    const View body = flat.body({WidgetKind::meeting, WidgetKind::machine, WidgetKind::progress});
    EXPECT_EQ(textItem(body, u"YOUR MACHINE"_s).origin.y(), 0);
    EXPECT_EQ(textItem(body, u"TIME PASSING"_s).origin.y(), 0);
    EXPECT_EQ(textItem(body, u"YOUR MACHINE"_s).origin.x(),
              naturalSize(flat.widget(WidgetKind::meeting)).width() + 56);
}

TEST_F(WallpaperContent, theSecondColumnStartsBesideTheWiderClock) {
    const WallpaperContentView flat(context, {1200, 150});
    const View body = flat.body({WidgetKind::currentApp, WidgetKind::machine, WidgetKind::clock});
    EXPECT_EQ(textItem(body, u"YOUR MACHINE"_s).origin.x(),
              naturalSize(flat.widget(WidgetKind::clock)).width() + 56);
}

TEST_F(WallpaperContent, aSmallWidgetIsDrawnAt85Percent) {
    preferences.setSize(WidgetSizeOption::small, WidgetKind::machine);
    const QSizeF natural = naturalSize(content.widget(WidgetKind::machine));
    const QSizeF taken = naturalSize(content.sizedWidget(WidgetKind::machine));
    EXPECT_EQ(taken.height(), std::ceil(natural.height() * 0.85));
    EXPECT_EQ(textItem(content.sizedWidget(WidgetKind::machine), u"YOUR MACHINE"_s).scale, 0.85);
}

TEST_F(WallpaperContent, aLargeWidgetIsDrawnAt130Percent) {
    preferences.setSize(WidgetSizeOption::large, WidgetKind::machine);
    const QSizeF natural = naturalSize(content.widget(WidgetKind::machine));
    EXPECT_EQ(naturalSize(content.sizedWidget(WidgetKind::machine)).height(),
              std::ceil(natural.height() * 1.3));
    EXPECT_EQ(textItem(content.sizedWidget(WidgetKind::machine), u"YOUR MACHINE"_s).scale, 1.3);
}

TEST_F(WallpaperContent, aMediumWidgetKeepsItsNaturalSize) {
    preferences.setSize(WidgetSizeOption::medium, WidgetKind::weather);
    EXPECT_EQ(naturalSize(content.sizedWidget(WidgetKind::weather)),
              naturalSize(content.widget(WidgetKind::weather)));
}

TEST_F(WallpaperContent, aScaledWidgetIsLaidOutIn440Points) {
    const QString name(200, u'n');
    state.currentAppName = name;
    preferences.setSize(WidgetSizeOption::medium, WidgetKind::currentApp);
    EXPECT_GT(naturalSize(content.sizedWidget(WidgetKind::currentApp)).width(), 440);
    preferences.setSize(WidgetSizeOption::large, WidgetKind::currentApp);
    EXPECT_LE(naturalSize(content.sizedWidget(WidgetKind::currentApp)).width(),
              std::ceil(440 * 1.3));
}

TEST_F(WallpaperContent, drawsEveryLocalKind) {
    state.iss = ISSInfo{u"Chad"_s, 4000, 421};
    state.quote = QuoteInfo{u"Q"_s, u"A"_s};
    state.onThisDay = OnThisDayInfo{u"1930"_s, u"A planet was named."_s};
    state.apod = APODInfo{u"Andromeda"_s, u"2026-03-12"_s, {}};
    state.deviceBatteries = std::vector<DeviceBattery>{{u"Mouse"_s, 50}};
    preferences.setCountdowns({{QUuid::createUuid(), u"Trip"_s, at(9, 0, 0, 4, 1)}});
    const std::vector<std::pair<WidgetKind, QString>> expected{
        {WidgetKind::clock, u"Good morning"_s},
        {WidgetKind::weather, u"Weather will appear with location"_s},
        {WidgetKind::sun, u"Sunset will appear with location"_s},
        {WidgetKind::airQuality, u"Air quality will appear with location"_s},
        {WidgetKind::meeting, u"Nothing on your calendar"_s},
        {WidgetKind::currentApp, u"Settling in"_s},
        {WidgetKind::topApp, u"Your day is just beginning"_s},
        {WidgetKind::appRanking, u"WHERE YOUR TIME WENT"_s},
        {WidgetKind::rhythm, u"YOUR RHYTHM"_s},
        {WidgetKind::desktop, u"YOUR DESKTOP"_s},
        {WidgetKind::machine, u"YOUR MACHINE"_s},
        {WidgetKind::reminders, u"REMINDERS"_s},
        {WidgetKind::countdowns, u"COUNTING DOWN"_s},
        {WidgetKind::progress, u"TIME PASSING"_s},
        {WidgetKind::devices, u"YOUR DEVICES"_s},
        {WidgetKind::quote, u"“Q”"_s},
        {WidgetKind::onThisDay, u"ON THIS DAY"_s},
        {WidgetKind::nasa, u"PICTURE OF THE DAY"_s},
        {WidgetKind::iss, u"ISS over Chad · 4,000 km from you"_s},
    };
    preferences.setUnitSystem(UnitSystem::metric);
    for (const auto &[kind, first] : expected) {
        EXPECT_EQ(texts(content.widget(kind)).value(0), first);
    }
}

} // namespace zeph
