// SPDX-License-Identifier: MIT
#include "ui/settings/SettingsSearch.h"
#include "ui/settings/WindowPlace.h"

#include <gtest/gtest.h>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

QStringList titlesOf(const std::vector<Findable> &found) {
    QStringList titles;
    for (const Findable &one : found) {
        titles.append(one.title);
    }
    return titles;
}

} // namespace

TEST(SettingsSearch, theStartOfATitleIsBestThenAWordThenTheDetail) {
    const std::vector<Findable> all{{u"Show meeting titles"_s, u"Reads the clock only."_s},
                                    {u"Overclock"_s, {}},
                                    {u"24-hour clock"_s, u"14:30"_s},
                                    {u"Clock size"_s, {}},
                                    {u"Units"_s, u"Metric"_s}};
    EXPECT_EQ(titlesOf(searchResults(all, u"clock"_s)),
              (QStringList{u"Clock size"_s, u"24-hour clock"_s, u"Overclock"_s,
                           u"Show meeting titles"_s}));
}

TEST(SettingsSearch, everyWordHasToBeThere) {
    EXPECT_TRUE(searchRank(u"Show meeting titles"_s, u"Off by default"_s, u"default show"_s));
    EXPECT_FALSE(searchRank(u"Show meeting titles"_s, u"Off by default"_s, u"show clock"_s));
}

TEST(SettingsSearch, caseAccentsAndBlanksDoNotCount) {
    EXPECT_EQ(searchRank(u"Café menu"_s, {}, u"  cafe   MENU "_s), 0);
}

TEST(SettingsSearch, nothingIsFoundByNothing) {
    EXPECT_FALSE(searchRank(u"Units"_s, {}, u"  "_s));
    EXPECT_TRUE(searchResults({{u"Units"_s, {}}}, {}).empty());
}

TEST(SettingsSearch, whatIsEquallyGoodKeepsItsOrder) {
    const std::vector<Findable> all{{u"Weather"_s, {}, 2}, {u"Weather"_s, {}, 0}};
    const std::vector<Findable> found = searchResults(all, u"wea"_s);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].tab, 2);
}

TEST(WindowPlace, hugsTheRightEdgeInTheMiddleOfTheHeight) {
    EXPECT_EQ(placeAtRightEdge(QRect(0, 32, 1920, 1048), QSize(880, 580)),
              QPoint(1920 - 880 - 24, 32 + (1048 - 580) / 2));
}

TEST(WindowPlace, onASecondDisplayToo) {
    EXPECT_EQ(placeAtRightEdge(QRect(1920, 0, 1000, 700), QSize(880, 580)), QPoint(2920 - 904, 60));
}

TEST(WindowPlace, aWiderWindowStaysOnItsScreen) {
    EXPECT_EQ(placeAtRightEdge(QRect(1920, 0, 880, 700), QSize(880, 580)).x(), 1920);
    EXPECT_EQ(placeAtRightEdge(QRect(1920, 0, 890, 700), QSize(880, 580)).x(), 1920);
}

TEST(WindowPlace, aTallerWindowStandsOnTheLowerEdge) {
    EXPECT_EQ(placeAtRightEdge(QRect(0, 20, 1280, 500), QSize(880, 580)).y(), 20 + 500 - 580);
}

} // namespace zeph::ui
