// SPDX-License-Identifier: MIT
#include "FramingFixture.h"

#include "model/ActivitySummary.h"
#include "model/AppUsage.h"
#include "model/CalendarSummary.h"
#include "model/WeatherInfo.h"

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

std::string headline(double seconds) {
    return StatFraming::topAppHeadline(AppUsage{u"id"_s, u"Editor"_s, seconds, std::nullopt})
        .toStdString();
}

std::string typing(double kpm, double average) {
    return StatFraming::typing(kpm, average).toStdString();
}

std::string active(double seconds, double average, double machineOn = 7200) {
    ActivitySummary summary;
    summary.activeSeconds = seconds;
    summary.machineOnSeconds = machineOn;
    return StatFraming::active(summary, average).toStdString();
}

} // namespace

TEST(FramingTopApp, isTheBeginningOfTheDayUpToAMinute) {
    EXPECT_EQ(StatFraming::topAppHeadline(std::nullopt), u"Your day is just beginning"_s);
    EXPECT_EQ(headline(0), "Your day is just beginning");
    EXPECT_EQ(headline(60), "Your day is just beginning");
}

TEST(FramingTopApp, namesTheApplicationAboveAMinute) {
    EXPECT_EQ(headline(60.1), "You've lived in Editor today · 1m");
    EXPECT_EQ(headline(7500), "You've lived in Editor today · 2h 5m");
}

TEST(FramingTopApp, takesANameLiterallyThatLooksLikeAPlaceholder) {
    const AppUsage app{u"id"_s, u"%2 %1"_s, 120, std::nullopt};
    EXPECT_EQ(StatFraming::topAppHeadline(app), u"You've lived in %2 %1 today · 2m"_s);
}

TEST(FramingTyping, restsUpToFiveAMinuteWhateverTheAverage) {
    EXPECT_EQ(typing(0, 0), "Hands resting");
    EXPECT_EQ(typing(5.0, 200), "Hands resting");
    EXPECT_EQ(typing(nan, 200), "Hands resting");
}

TEST(FramingTyping, tellsTheRateWithoutAUsableHistory) {
    EXPECT_EQ(typing(5.1, 0), "Typing 5 a minute");
    EXPECT_EQ(typing(42.5, 5.0), "Typing 43 a minute");
    EXPECT_EQ(typing(42.49, 5.0), "Typing 42 a minute");
}

TEST(FramingTyping, comparesWithTheUsualRate) {
    EXPECT_EQ(typing(100, 100), "Typing at your steady pace");
    EXPECT_EQ(typing(112, 100), "Typing at your steady pace"); // 0.12 exactly
    EXPECT_EQ(typing(88, 100), "Typing at your steady pace");
    EXPECT_EQ(typing(112.5, 100), "Typing 12% faster than your usual");
    EXPECT_EQ(typing(113, 100), "Typing 13% faster than your usual");
    EXPECT_EQ(typing(250, 100), "Typing 150% faster than your usual");
    EXPECT_EQ(typing(87.5, 100), "Typing 12% slower than your usual · easing off");
    EXPECT_EQ(typing(6, 100), "Typing 94% slower than your usual · easing off");
    EXPECT_EQ(typing(5.1, 5.1), "Typing at your steady pace");
}

TEST(FramingTypingDeathTest, endsTheProcessOnARateThatIsNotFinite) {
    EXPECT_DEATH(typing(infinity, 0), "no 64-bit integer");
    EXPECT_DEATH(typing(infinity, 100), "no 64-bit integer");
    EXPECT_DEATH(typing(100, infinity), "no 64-bit integer");
}

TEST(FramingSwitches, changesItsWordAtEachBoundary) {
    const std::pair<qint64, std::string> rows[] = {
        {0, "0 app switches · deep and undistracted"},
        {39, "39 app switches · deep and undistracted"},
        {40, "40 app switches · an even rhythm"},
        {119, "119 app switches · an even rhythm"},
        {120, "120 app switches · a busy, mixed day"},
        {249, "249 app switches · a busy, mixed day"},
        {250, "250 app switches · a fragmented day"},
        {12345, "12345 app switches · a fragmented day"}};
    for (const auto &[count, text] : rows) {
        EXPECT_EQ(StatFraming::switches(count).toStdString(), text);
    }
}

TEST(FramingActive, startsWithinTheFirstMinute) {
    EXPECT_EQ(active(0, 0), "Just getting started");
    EXPECT_EQ(active(60, 3600), "Just getting started");
    EXPECT_EQ(active(60.5, 0), "Active 1m of 2h on");
}

TEST(FramingActive, comparesWithTheUsualDay) {
    EXPECT_EQ(active(4141, 3600), "Active 1h 9m · more than usual");
    EXPECT_EQ(active(3059, 3600), "Active 50m · a lighter day");
    EXPECT_EQ(active(4139, 3600), "Active 1h 8m of 2h on");
    EXPECT_EQ(active(3061, 3600), "Active 51m of 2h on");
    EXPECT_EQ(active(1150, 1000), "Active 19m of 2h on"); // 0.15 exactly
    EXPECT_EQ(active(850, 1000), "Active 14m of 2h on");
}

TEST(FramingActive, tellsTheMachinesTimeWithoutAUsableAverage) {
    EXPECT_EQ(active(3600, 600, 5400), "Active 1h of 1h 30m on"); // 600 is not above 600
    EXPECT_EQ(active(3600, 600.5, 5400), "Active 1h · more than usual");
    EXPECT_EQ(active(3600, 0, 3600), "Active 1h of 1h on");
}

class FramingWeather : public Framing {
protected:
    std::string weather(double celsius, qint64 code, bool isDay,
                        const std::optional<QString> &place) const {
        WeatherInfo info;
        info.temperatureC = celsius;
        info.code = code;
        info.isDay = isDay;
        info.locationName = place;
        return StatFraming::weather(info, context).toStdString();
    }
};

TEST_F(FramingWeather, waitsForTheLocation) {
    EXPECT_EQ(StatFraming::weather(std::nullopt, context), u"Weather will appear with location"_s);
}

TEST_F(FramingWeather, tellsTemperaturePlaceAndSky) {
    EXPECT_EQ(weather(18.4, 2, true, u"Berlin"_s), "18°C in Berlin · partly cloudy");
    EXPECT_EQ(weather(18.5, 0, false, std::nullopt), "19°C · clear");
    EXPECT_EQ(weather(-2.5, 75, true, u"Oslo"_s), "-3°C in Oslo · snow");
    EXPECT_EQ(weather(-0.4, 1234, true, std::nullopt), "0°C · –");
    EXPECT_EQ(weather(1, 3, true, u"%4"_s), "1°C in %4 · overcast");
}

TEST_F(FramingWeather, isInFahrenheitInImperialUnits) {
    useImperial();
    EXPECT_EQ(weather(0, 0, true, std::nullopt), "32°F · clear");
    EXPECT_EQ(weather(18.4, 61, true, u"Boston"_s), "65°F in Boston · rain");
    EXPECT_EQ(weather(-40, 0, true, std::nullopt), "-40°F · clear");
    EXPECT_EQ(weather(0.2777777777777778, 0, true, std::nullopt), "33°F · clear"); // 32.5
}

using FramingWeatherDeathTest = FramingWeather;

TEST_F(FramingWeatherDeathTest, endsTheProcessOnATemperatureThatIsNotFinite) {
    EXPECT_DEATH(weather(nan, 0, true, std::nullopt), "no 64-bit integer");
}

class FramingMeeting : public Framing {
protected:
    std::string next(std::optional<qint64> minutes, const std::optional<QString> &title) const {
        CalendarSummary summary;
        summary.nextEventStart = dateOf("2024-03-05T15:07:00+01:00");
        summary.nextEventTitle = title;
        summary.eventsToday = 1;
        summary.minutesUntilNext = minutes;
        return StatFraming::nextMeeting(summary, context).toStdString();
    }
};

TEST_F(FramingMeeting, tellsAnEmptyCalendarFromADayThatIsDone) {
    CalendarSummary summary;
    EXPECT_EQ(StatFraming::nextMeeting(summary, context), u"Nothing on your calendar"_s);
    summary.eventsToday = 1;
    EXPECT_EQ(StatFraming::nextMeeting(summary, context), u"No more meetings today"_s);
}

TEST_F(FramingMeeting, startsNowAtZeroMinutesOrLess) {
    EXPECT_EQ(next(0, u"Review"_s), "A meeting is starting now");
    EXPECT_EQ(next(-10, u"Review"_s), "A meeting is starting now");
}

TEST_F(FramingMeeting, leavesTheTitleOutBelowAnHour) {
    EXPECT_EQ(next(1, u"Review"_s), "Next up in 1m, at 3:07 pm");
    EXPECT_EQ(next(59, u"Review"_s), "Next up in 59m, at 3:07 pm");
}

TEST_F(FramingMeeting, namesTheTitleFromAnHourOn) {
    EXPECT_EQ(next(60, u"Review"_s), "Next: Review at 3:07 pm");
    EXPECT_EQ(next(60, std::nullopt), "Next meeting at 3:07 pm");
    EXPECT_EQ(next(std::nullopt, u"%2"_s), "Next: %2 at 3:07 pm");
    EXPECT_EQ(next(std::nullopt, std::nullopt), "Next meeting at 3:07 pm");
}

using FramingGreeting = Framing;

TEST_F(FramingGreeting, changesWithTheLocalHour) {
    const std::pair<const char *, std::string> rows[] = {
        {"2024-03-05T00:00:00+01:00", "Still up"},
        {"2024-03-05T04:59:59+01:00", "Still up"},
        {"2024-03-05T05:00:00+01:00", "Good morning"},
        {"2024-03-05T11:59:59+01:00", "Good morning"},
        {"2024-03-05T12:00:00+01:00", "Good afternoon"},
        {"2024-03-05T16:59:59+01:00", "Good afternoon"},
        {"2024-03-05T17:00:00+01:00", "Good evening"},
        {"2024-03-05T21:59:59+01:00", "Good evening"},
        {"2024-03-05T22:00:00+01:00", "Still up"},
        {"2024-03-05T23:59:59+01:00", "Still up"}};
    for (const auto &[iso, text] : rows) {
        EXPECT_EQ(StatFraming::greeting(dateOf(iso), context).toStdString(), text) << iso;
    }
}

} // namespace zeph
