// SPDX-License-Identifier: MIT
#include "adapters/places/CityTable.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <vector>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QByteArray threeCities = "52.5167\t13.4\tBerlin\tBerlin\tGermany\n"
                               "-18.1333\t178.4333\tSuva\t\tFiji\n"
                               "64.15\t-21.95\tReykjavík\t\tIceland\n";

QString countryOf(const QByteArray &line) {
    return CityTable(line).nearest({0, 0}).value().country;
}

} // namespace

TEST(CityTable, findsTheNearestCity) {
    const CityTable table(threeCities);
    const auto city = table.nearest({52.39, 13.06});
    ASSERT_TRUE(city);
    EXPECT_EQ(city->name, u"Berlin"_s);
    EXPECT_EQ(city->area, u"Berlin"_s);
    EXPECT_EQ(city->country, u"Germany"_s);
    EXPECT_NEAR(city->kilometers, 27, 1);
}

TEST(CityTable, looksAcrossTheDateLine) {
    const auto city = CityTable(threeCities).nearest({-18, -179});
    ASSERT_TRUE(city);
    EXPECT_EQ(city->name, u"Suva"_s);
    EXPECT_NEAR(city->kilometers, 271, 3);
}

TEST(CityTable, looksAcrossThePole) {
    const auto city = CityTable(threeCities).nearest({89, 158});
    ASSERT_TRUE(city);
    EXPECT_EQ(city->name, u"Reykjavík"_s);
    EXPECT_NEAR(city->kilometers, 2985, 30);
}

TEST(CityTable, isNoWayFromACityToItself) {
    const auto city = CityTable(threeCities).nearest({64.15, -21.95});
    ASSERT_TRUE(city);
    EXPECT_NEAR(city->kilometers, 0, 0.01);
}

TEST(CityTable, reachesTheOppositeEndOfTheEarth) {
    const auto city = CityTable("0\t0\tNull\t\tNowhere").nearest({0, 180});
    ASSERT_TRUE(city);
    EXPECT_NEAR(city->kilometers, 20'015, 1);
    EXPECT_EQ(city->country, u"Nowhere"_s);
}

TEST(CityTable, hasNoCityWithoutText) {
    EXPECT_TRUE(CityTable().isEmpty());
    EXPECT_TRUE(CityTable(QByteArray()).isEmpty());
    EXPECT_FALSE(CityTable().nearest({0, 0}));
}

TEST(CityTable, passesOverDamagedLines) {
    const std::vector<QByteArray> damaged{"52.5\t13.4\tBerlin\tGermany",
                                          "52.5\t13.4\tBerlin\tBerlin\tGermany\tmore",
                                          "north\t13.4\tBerlin\tBerlin\tGermany",
                                          "91\t13.4\tBerlin\tBerlin\tGermany",
                                          "nan\t13.4\tBerlin\tBerlin\tGermany",
                                          "52.5\t181\tBerlin\tBerlin\tGermany",
                                          "52.5\t13.4\t\tBerlin\tGermany",
                                          "\t\t\t\t",
                                          "no tabs",
                                          "\n\n"};
    for (const QByteArray &line : damaged) {
        EXPECT_TRUE(CityTable(line).isEmpty()) << line.constData();
        const CityTable mixed(line + '\n' + threeCities);
        EXPECT_EQ(mixed.nearest({52.5, 13.4}).value().name, u"Berlin"_s) << line.constData();
    }
}

TEST(CityTable, survivesATextThatIsCutOffAnywhere) {
    for (qsizetype length = 0; length < threeCities.size(); ++length) {
        const auto city = CityTable(threeCities.first(length)).nearest({52.5, 13.4});
        EXPECT_TRUE(!city || !city->name.isEmpty()) << length;
    }
}

TEST(CityTable, namesCountriesAsTheyAreCalledNow) {
    EXPECT_EQ(countryOf("0\t0\tMbabane\t\tSwaziland"), u"Eswatini"_s);
    EXPECT_EQ(countryOf("0\t0\tBoston\tMassachusetts\tUnited States"), u"United States"_s);
    EXPECT_EQ(countryOf("0\t0\tPalikir\t\tMicronesia, Federated States of"),
              u"Federated States of Micronesia"_s);
    EXPECT_EQ(countryOf("0\t0\tAbidjan\t\tCôte d'Ivoire"), u"Côte d'Ivoire"_s);
    EXPECT_EQ(countryOf("0\t0\tA\t\t"), QString());
}

} // namespace zeph
