// SPDX-License-Identifier: MIT
#include "widgets/RootWallpaperView.h"

#include "drawing/palette/BackgroundPresets.h"
#include "widgets/WidgetFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

class RootWallpaper : public WidgetFixture {
protected:
    static QStringList words(const Scene &scene) {
        QStringList drawn;
        for (const DrawItem &item : scene.items) {
            if (const auto *found = std::get_if<TextItem>(&item)) {
                drawn << found->text;
            }
        }
        return drawn;
    }

    bool quoteEnabled = true;
    RootWallpaperView root{state,   preferences, usage,
                           framing, metrics,     {.quoteEnabled = [this] { return quoteEnabled; }}};
};

TEST_F(RootWallpaper, automaticPaletteFollowsTheHourWithoutALocation) {
    preferences.setBackgroundMode(BackgroundMode::automatic);
    state.now = at(12, 30);
    EXPECT_EQ(root.palette(), Palette::forMood(1, FocusState::off));
    state.now = at(3, 0);
    EXPECT_EQ(root.palette(), Palette::forMood(0, FocusState::off));
    state.now = at(18, 0);
    expectColor(root.palette().accent, Palette::forMood(0, FocusState::off).accent);
}

TEST_F(RootWallpaper, automaticPaletteFollowsTheSunAndTheFocus) {
    preferences.setBackgroundMode(BackgroundMode::automatic);
    state.solar = SolarInfo{at(6, 0), at(18, 0), 0.25};
    state.focus = FocusState::on;
    EXPECT_EQ(root.palette(), Palette::forMood(0.25, FocusState::on));
}

TEST_F(RootWallpaper, solidPaletteComesFromTheUsersColour) {
    preferences.setBackgroundMode(BackgroundMode::solid);
    preferences.setBackgroundHex(u"#0A1A14"_s);
    EXPECT_EQ(root.palette(), Palette::custom(*Color::fromHex(u"#0A1A14"_s), FocusState::off));
}

TEST_F(RootWallpaper, withoutAColourItIsMidnight) {
    preferences.setBackgroundMode(BackgroundMode::solid);
    preferences.setBackgroundHex({});
    EXPECT_EQ(root.palette(), Palette::custom(*Color::fromHex(u"#0D0F1F"_s), FocusState::off));
}

TEST_F(RootWallpaper, aTextThatIsNoColourStillGivesADarkPalette) {
    preferences.setBackgroundMode(BackgroundMode::solid);
    preferences.setBackgroundHex(u"mauve"_s);
    EXPECT_EQ(root.palette(), Palette::custom({0.05, 0.06, 0.12, 1}, FocusState::off));
}

TEST_F(RootWallpaper, transparentModeDimsTheCardsAndDrawsNoBackdrop) {
    preferences.setBackgroundMode(BackgroundMode::transparent);
    preferences.setTransparentDim(0.35);
    EXPECT_EQ(root.palette().cardFill, Color::black(0.35));
    EXPECT_FALSE(root.scene({1280, 800}, true).backdrop.has_value());
}

TEST_F(RootWallpaper, transparentModeFallsBackToABackdropOnAnOpaqueSurface) {
    preferences.setBackgroundMode(BackgroundMode::transparent);
    EXPECT_TRUE(root.scene({1280, 800}, false).backdrop.has_value());
}

TEST_F(RootWallpaper, withAnotherBackgroundItIsTheSameWallpaperOnThatOne) {
    preferences.setBackgroundMode(BackgroundMode::solid);
    preferences.setBackgroundHex(u"#0A1A14"_s);
    const RootWallpaperView daily = root.withBackground(BackgroundMode::automatic);
    EXPECT_EQ(daily.palette(), Palette::forMood(state.moodFraction(9), FocusState::unknown));
    EXPECT_FALSE(root.withBackground(BackgroundMode::transparent).backdrop(true).has_value());
    EXPECT_EQ(root.withBackground(BackgroundMode::solid).palette(), root.palette());
    EXPECT_EQ(daily.scene({1280, 800}, true).items.size(),
              root.scene({1280, 800}, true).items.size());
    EXPECT_EQ(preferences.backgroundMode(), BackgroundMode::solid);
}

TEST_F(RootWallpaper, energyRestsWhenIdleAndRisesWithTyping) {
    state.rhythm = InputRhythm{0, 0, 0, 0, 0};
    EXPECT_DOUBLE_EQ(root.background().energy, 0.25);
    state.rhythm = InputRhythm{160, 0, 0, 0, 0};
    EXPECT_DOUBLE_EQ(root.background().energy, 0.625);
    state.rhythm = InputRhythm{640, 0, 0, 0, 0};
    EXPECT_DOUBLE_EQ(root.background().energy, 1);
    ActivitySummary idle;
    idle.isIdle = true;
    state.activity = idle;
    EXPECT_DOUBLE_EQ(root.background().energy, 0.12);
}

TEST_F(RootWallpaper, theBackdropStandsStill) {
    EXPECT_FALSE(root.background().animate);
    EXPECT_EQ(root.background().fps, 12);
    const Scene scene = root.scene({1280, 800}, false);
    EXPECT_EQ(scene.backdrop->time, 0);
    EXPECT_EQ(scene.backdrop->energy, 0.3);
}

TEST_F(RootWallpaper, anAnimatedBackdropMovesInStepsOfItsPace) {
    AmbientBackgroundView view{palette, 0.7, true, 12};
    const Date tick{referenceDateSince1970 + 600};
    EXPECT_EQ(view.picture(tick).energy, 0.7);
    EXPECT_DOUBLE_EQ(view.picture(tick + 0.01).time, 600);
    EXPECT_DOUBLE_EQ(view.picture(tick + 0.09).time, 600 + 1.0 / 12);
}

TEST_F(RootWallpaper, contentStandsInsideMarginsAndPanels) {
    EXPECT_EQ(root.contentArea({1280, 800}), QRectF(48, 28, 1280 - 96, 800 - 56));
    state.dockInsets = EdgeInsets{25, 5, 70, 10};
    EXPECT_EQ(root.contentArea({1280, 800}), QRectF(53, 53, 1280 - 96 - 15, 800 - 56 - 95));
}

TEST_F(RootWallpaper, aTinyScreenHasAnEmptyContentArea) {
    EXPECT_EQ(root.contentArea({60, 40}).size(), QSizeF(0, 0));
}

TEST_F(RootWallpaper, pinsTheClockToTheCornerOfTheContentArea) {
    const Scene scene = root.scene({1280, 800}, false);
    const auto &last = std::get<TextItem>(scene.items.back());
    EXPECT_EQ(last.text, u"Thursday, March 12"_s);
    EXPECT_EQ(last.origin.x(), 48);
    EXPECT_DOUBLE_EQ(last.origin.y() + metrics.size(last.text, last.style.font).height(), 800 - 28);
}

TEST_F(RootWallpaper, showsWidgetsInTheWallpapersOrder) {
    state.quote = QuoteInfo{u"Less, but better."_s, u"A. Designer"_s};
    QStringList drawn = words(root.scene({1280, 2400}, false));
    const QStringList order{u"“Less, but better.”"_s,
                            u"WHERE YOUR TIME WENT"_s,
                            u"YOUR RHYTHM"_s,
                            u"YOUR MACHINE"_s,
                            u"TIME PASSING"_s,
                            u"Your day is just beginning"_s,
                            u"Settling in"_s,
                            u"Nothing on your calendar"_s,
                            u"Sunset will appear with location"_s,
                            u"Air quality will appear with location"_s,
                            u"Weather will appear with location"_s,
                            u"Good morning"_s};
    drawn.removeIf([&order](const QString &text) { return !order.contains(text); });
    EXPECT_EQ(drawn, order);
}

TEST_F(RootWallpaper, hidesTheQuoteWhenTheUserSwitchedItOff) {
    state.quote = QuoteInfo{u"Less, but better."_s, u"A. Designer"_s};
    quoteEnabled = false;
    EXPECT_FALSE(words(root.scene({1280, 800}, false)).contains(u"“Less, but better.”"_s));
}

TEST_F(RootWallpaper, drawsTheSameSceneTwiceWhenNothingChanged) {
    EXPECT_EQ(root.scene({1280, 800}, false).items, root.scene({1280, 800}, false).items);
}

} // namespace zeph
