// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"
#include "widgets/WidgetFixture.h"

namespace zeph {

using namespace Qt::StringLiterals;

using ClockWidget = WidgetFixture;
using SunWidget = WidgetFixture;

TEST_F(ClockWidget, greetsAndTellsTimeAndDate) {
    EXPECT_EQ(texts(clockWidget(context)),
              (QStringList{u"Good morning"_s, u"9:41"_s, u"Thursday, March 12"_s}));
}

TEST_F(ClockWidget, twelveHourFormHasNoDayHalfMark) {
    state.now = at(14, 30);
    EXPECT_EQ(texts(clockWidget(context)).at(1), u"2:30"_s);
}

TEST_F(ClockWidget, twentyFourHourFormHasTwoDigitHours) {
    preferences.setUse24HourClock(true);
    EXPECT_EQ(texts(clockWidget(context)).at(1), u"09:41"_s);
    state.now = at(14, 30);
    EXPECT_EQ(texts(clockWidget(context)).at(1), u"14:30"_s);
}

TEST_F(ClockWidget, drawsTheTimeLargeThinAndWithASoftShadow) {
    const TextItem time = textItem(clockWidget(context), u"9:41"_s);
    EXPECT_EQ(time.style.font.size, 84);
    EXPECT_EQ(time.style.font.weight, FontWeight::thin);
    EXPECT_TRUE(time.style.font.evenDigits);
    expectColor(time.style.color, palette.text);
    EXPECT_EQ(time.style.shadow, (TextShadow{Color::black(0.25), 12, 4}));
}

TEST_F(ClockWidget, drawsGreetingAndDateQuietly) {
    const TextItem greeting = textItem(clockWidget(context), u"Good morning"_s);
    EXPECT_EQ(greeting.style.font.size, 17);
    EXPECT_EQ(greeting.style.font.weight, FontWeight::medium);
    expectColor(greeting.style.color, textColor(0.6));
    const TextItem date = textItem(clockWidget(context), u"Thursday, March 12"_s);
    EXPECT_EQ(date.style.font.size, 19);
    EXPECT_EQ(date.style.font.weight, FontWeight::light);
    expectColor(date.style.color, textColor(0.7));
}

TEST_F(ClockWidget, leavesEightPointsBetweenItsRows) {
    const View clockView = clockWidget(context);
    EXPECT_DOUBLE_EQ(textItem(clockView, u"9:41"_s).origin.y(), lineHeight(17) + 8);
    EXPECT_DOUBLE_EQ(textItem(clockView, u"Thursday, March 12"_s).origin.y(),
                     lineHeight(17) + 8 + lineHeight(84) + 8);
}

TEST_F(ClockWidget, theInkOfTheTimeStartsAtTheEdgeOfGreetingAndDate) {
    state.now = at(10, 24);
    EXPECT_EQ(textItem(clockWidget(context), u"10:24"_s).origin.x(),
              -metrics.inkStart(u"10:24"_s, {}));
    EXPECT_EQ(textItem(clockWidget(context), u"Thursday, March 12"_s).origin.x(), 0);
    const double width = naturalSize(clockWidget(context)).width();
    state.now = at(20, 24);
    preferences.setUse24HourClock(true);
    EXPECT_EQ(textItem(clockWidget(context), u"20:24"_s).origin.x(), 0);
    EXPECT_EQ(naturalSize(clockWidget(context)).width(), width) << "no column moves with the hour";
}

TEST_F(SunWidget, waitsForALocation) {
    EXPECT_EQ(texts(sunWidget(context)), QStringList{u"Sunset will appear with location"_s});
    EXPECT_EQ(symbols(sunWidget(context)), QStringList{u"sunset"_s});
}

TEST_F(SunWidget, countsDownToSunset) {
    state.solar = SolarInfo{at(6, 33), at(18, 5), 0.6};
    EXPECT_EQ(texts(sunWidget(context)), QStringList{u"Sunset in 8h 24m · 6:05 PM"_s});
}

TEST_F(SunWidget, dropsTheStartedMinute) {
    state.solar = SolarInfo{at(6, 33), at(10, 0), 0.6};
    state.now = at(9, 1, 1);
    EXPECT_EQ(texts(sunWidget(context)), QStringList{u"Sunset in 58m · 10:00 AM"_s});
}

TEST_F(SunWidget, followsTheClockPreference) {
    preferences.setUse24HourClock(true);
    state.solar = SolarInfo{at(6, 33), at(18, 5), 0.6};
    EXPECT_EQ(texts(sunWidget(context)), QStringList{u"Sunset in 8h 24m · 18:05"_s});
}

TEST_F(SunWidget, countsDownToSunriseOnceTheSunIsDown) {
    state.now = at(20, 0);
    state.solar = SolarInfo{at(6, 30, 0, 3, 13), at(18, 5), 0};
    EXPECT_EQ(texts(sunWidget(context)), QStringList{u"Sunrise in 10h 30m · 6:30 AM"_s});
}

TEST_F(SunWidget, prefersTheSunsetStillToComeBeforeSunrise) {
    state.now = at(5, 0);
    state.solar = SolarInfo{at(6, 30), at(18, 0), 0};
    EXPECT_EQ(texts(sunWidget(context)), QStringList{u"Sunset in 13h · 6:00 PM"_s});
}

TEST_F(SunWidget, saysTheSunIsDownWhenTheNextSunriseIsUnknown) {
    state.now = at(20, 0);
    state.solar = SolarInfo{{}, at(18, 5), 0};
    EXPECT_EQ(texts(sunWidget(context)), QStringList{u"The sun is down for the day"_s});
    state.solar = SolarInfo{at(6, 30), at(20, 0), 0};
    EXPECT_EQ(texts(sunWidget(context)), QStringList{u"The sun is down for the day"_s});
}

TEST_F(SunWidget, waitsWhenOnlyAPastSunriseIsKnown) {
    state.solar = SolarInfo{at(6, 30), {}, 1};
    EXPECT_EQ(texts(sunWidget(context)), QStringList{u"Sunset will appear with location"_s});
}

} // namespace zeph
