// SPDX-License-Identifier: MIT
#include "adapters/places/ZoneTable.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zeph {

namespace {

constexpr char table[] = "# comment\tEurope/Berlin\n"
                         "#@AQ\t-9000+00000\tEurope/Commented\n"
                         "DE,DK,NO\t+5230+01322\tEurope/Berlin\tmost of Germany\n"
                         "US\t+340308-1181434\tAmerica/Los_Angeles\n"
                         "\n"
                         "broken line without tabs\n"
                         "XX\t+52x0+01322\tEurope/Damaged\n"
                         "XX\t+5000+01000\tEurope/Damaged\tthe second try\n"
                         "NZ\t-3652+17446";

std::optional<Coordinate> cityOf(QByteArrayView zone) {
    return principalCity(QByteArrayView(table), zone);
}

} // namespace

TEST(ZoneTable, readsDegreesMinutesAndSeconds) {
    const auto degrees = parseTablePosition("-90+000");
    ASSERT_TRUE(degrees);
    EXPECT_EQ(*degrees, (Coordinate{-90, 0}));
    const auto minutes = parseTablePosition("+5230+01322");
    ASSERT_TRUE(minutes);
    EXPECT_DOUBLE_EQ(minutes->latitude, 52.5);
    EXPECT_DOUBLE_EQ(minutes->longitude, 13 + 22 / 60.0);
    const auto seconds = parseTablePosition("+340308-1181434");
    ASSERT_TRUE(seconds);
    EXPECT_DOUBLE_EQ(seconds->latitude, 34 + 3 / 60.0 + 8 / 3600.0);
    EXPECT_DOUBLE_EQ(seconds->longitude, -(118 + 14 / 60.0 + 34 / 3600.0));
}

TEST(ZoneTable, keepsTheSignOfLessThanADegree) {
    const auto position = parseTablePosition("-0030-00007");
    ASSERT_TRUE(position);
    EXPECT_DOUBLE_EQ(position->latitude, -0.5);
    EXPECT_DOUBLE_EQ(position->longitude, -7 / 60.0);
}

TEST(ZoneTable, readsTheEdgesOfTheGlobe) {
    EXPECT_EQ(parseTablePosition("+9000+18000"), (Coordinate{90, 180}));
    EXPECT_EQ(parseTablePosition("-9000-18000"), (Coordinate{-90, -180}));
}

TEST(ZoneTable, refusesWhatIsNoPosition) {
    const std::vector<const char *> cases{"",
                                          "+",
                                          "+-",
                                          "+5230",
                                          "5230+01322",
                                          "+5230 01322",
                                          "+523+01322",
                                          "+5230+1322",
                                          "+5230+00132200",
                                          "+523000+01322",
                                          "+52+01322",
                                          "+5260+01322",
                                          "+523060+0132200",
                                          "+9001+00000",
                                          "+5230+18001",
                                          "+52a0+01322",
                                          "++230+01322",
                                          "+5230++1322",
                                          "+5230+01322 ",
                                          "+5230+01322+",
                                          "+52.5+013.37"};
    for (const char *const text : cases) {
        EXPECT_EQ(parseTablePosition(text), std::nullopt) << text;
    }
}

TEST(ZoneTable, findsTheLineOfTheZone) {
    const auto berlin = cityOf("Europe/Berlin");
    ASSERT_TRUE(berlin);
    EXPECT_DOUBLE_EQ(berlin->latitude, 52.5);
    EXPECT_TRUE(cityOf("America/Los_Angeles"));
}

TEST(ZoneTable, passesOverCommentsAndDamagedLines) {
    EXPECT_EQ(cityOf("Europe/Commented"), std::nullopt);
    EXPECT_EQ(cityOf("Europe/Damaged"), (Coordinate{50, 10}));
}

TEST(ZoneTable, takesNoPartOfAName) {
    EXPECT_EQ(cityOf("Europe/Ber"), std::nullopt);
    EXPECT_EQ(cityOf("Europe/Berlin2"), std::nullopt);
    EXPECT_EQ(cityOf(""), std::nullopt);
    EXPECT_EQ(cityOf("most of Germany"), std::nullopt);
}

TEST(ZoneTable, survivesATableThatIsCutOffAnywhere) {
    const QByteArrayView whole(table);
    const auto berlin = cityOf("Europe/Berlin");
    for (qsizetype length = 0; length < whole.size(); ++length) {
        const auto city = principalCity(whole.first(length), "Europe/Berlin");
        EXPECT_TRUE(city == std::nullopt || city == berlin) << length;
    }
    EXPECT_EQ(cityOf("Pacific/Auckland"), std::nullopt) << "its line ends before the name";
}

} // namespace zeph
