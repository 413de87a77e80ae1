// SPDX-License-Identifier: MIT
#include "host/ScreenSelection.h"

#include "support/FakeScreens.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {
namespace {

TEST(ScreenSelection, allIsEveryScreenInSystemOrder) {
    FakeScreens screens;
    screens.screens = {screen(u"B"_s, 2, 100, 100), screen(u"A"_s, 1, 100, 100, 100)};
    EXPECT_EQ(selectedScreens(AllDisplays{}, screens), screens.screens);
}

TEST(ScreenSelection, aChosenScreenStandsAlone) {
    FakeScreens screens;
    screens.screens = {screen(u"A"_s, 1, 100, 100), screen(u"B"_s, 2, 100, 100, 100)};
    const auto selected = selectedScreens(OneScreen{u"B"_s}, screens);
    ASSERT_EQ(selected.size(), 1U);
    EXPECT_EQ(selected.front().persistentID, u"B"_s);
}

TEST(ScreenSelection, aChoiceWithoutItsConnectorIsTheOneScreenWithTheseWords) {
    FakeScreens screens;
    screens.screens = {screen(u"Acme P24 @DP-1"_s, 1, 100, 100),
                       screen(u"Acme P27 @DP-2"_s, 2, 100, 100, 100)};
    const auto selected = selectedScreens(OneScreen{u"Acme P27"_s}, screens);
    ASSERT_EQ(selected.size(), 1U);
    EXPECT_EQ(selected.front().persistentID, u"Acme P27 @DP-2"_s);

    screens.screens.push_back(screen(u"Acme P27 @DP-3"_s, 3, 100, 100, 200));
    const auto fallback = selectedScreens(OneScreen{u"Acme P27"_s}, screens);
    ASSERT_EQ(fallback.size(), 1U);
    EXPECT_EQ(fallback.front().persistentID, u"Acme P24 @DP-1"_s) << "which twin can't be told";
}

TEST(ScreenSelection, aChoiceOfOneConnectorIsNeverThatOfAnother) {
    FakeScreens screens;
    screens.screens = {screen(u"A"_s, 1, 100, 100), screen(u"Acme P27 @DP-2"_s, 2, 100, 100, 100)};
    const auto selected = selectedScreens(OneScreen{u"Acme P27 @DP-1"_s}, screens);
    ASSERT_EQ(selected.size(), 1U);
    EXPECT_EQ(selected.front().persistentID, u"A"_s);
}

TEST(ScreenSelection, aChosenTwinStaysChosenWhenTheOtherIsUnplugged) {
    FakeScreens screens;
    screens.screens = {screen(u"A"_s, 1, 100, 100), screen(u"Acme P27 1"_s, 2, 100, 100, 100)};
    screens.screens[1].connector = u"DP-2"_s;
    const auto selected = selectedScreens(OneScreen{u"Acme P27 1 @DP-2"_s}, screens);
    ASSERT_EQ(selected.size(), 1U);
    EXPECT_EQ(selected.front().persistentID, u"Acme P27 1"_s);
    const auto other = selectedScreens(OneScreen{u"Acme P27 1 @DP-1"_s}, screens);
    ASSERT_EQ(other.size(), 1U);
    EXPECT_EQ(other.front().persistentID, u"A"_s) << "that one is gone";
}

TEST(ScreenSelection, aChoiceThatNamesTheMakerInFullIsTheOneScreenWithTheRestOfTheWords) {
    FakeScreens screens;
    screens.screens = {screen(u"ACM P24 77 @DP-1"_s, 1, 100, 100),
                       screen(u"ACM P27 77"_s, 2, 100, 100, 100),
                       screen(u"VGA-1"_s, 3, 100, 100, 200)};
    const auto selected = selectedScreens(OneScreen{u"Acme Displays Inc. P27 77"_s}, screens);
    ASSERT_EQ(selected.size(), 1U);
    EXPECT_EQ(selected.front().persistentID, u"ACM P27 77"_s);
    const auto connected = selectedScreens(OneScreen{u"Acme Inc. P24 77 @DP-1"_s}, screens);
    EXPECT_EQ(connected.front().persistentID, u"ACM P24 77 @DP-1"_s);
    const auto elsewhere = selectedScreens(OneScreen{u"Acme Inc. P27 78"_s}, screens);
    EXPECT_EQ(elsewhere.front().persistentID, u"ACM P24 77 @DP-1"_s) << "the main screen";
}

TEST(ScreenSelection, anExactChoiceGoesBeforeOneWithoutItsConnector) {
    FakeScreens screens;
    screens.screens = {screen(u"Acme P27 @DP-1"_s, 1, 100, 100),
                       screen(u"Acme P27"_s, 2, 100, 100, 100)};
    const auto selected = selectedScreens(OneScreen{u"Acme P27"_s}, screens);
    ASSERT_EQ(selected.size(), 1U);
    EXPECT_EQ(selected.front().persistentID, u"Acme P27"_s);
}

TEST(ScreenSelection, anUnpluggedChoiceFallsBackToTheMainScreen) {
    FakeScreens screens;
    screens.screens = {screen(u"A"_s, 1, 100, 100), screen(u"B"_s, 2, 100, 100, 100)};
    const auto selected = selectedScreens(OneScreen{u"gone"_s}, screens);
    ASSERT_EQ(selected.size(), 1U);
    EXPECT_EQ(selected.front().persistentID, u"A"_s);
}

TEST(ScreenSelection, withoutAMainScreenTheFallbackIsAllScreens) {
    class NoMain : public FakeScreens {
        std::optional<Screen> main() const override { return std::nullopt; }
    } screens;
    screens.screens = {screen(u"A"_s, 1, 100, 100), screen(u"B"_s, 2, 100, 100, 100)};
    EXPECT_EQ(selectedScreens(OneScreen{u"gone"_s}, screens).size(), 2U);
}

TEST(ScreenSelection, noScreensSelectNone) {
    const FakeScreens screens;
    EXPECT_TRUE(selectedScreens(AllDisplays{}, screens).empty());
    EXPECT_TRUE(selectedScreens(OneScreen{u"A"_s}, screens).empty());
}

TEST(ScreenSelection, aDisplayWithoutPersistentIdentityIsBuiltByItsNumberButNeverChosen) {
    FakeScreens screens;
    screens.screens = {screen(u"A"_s, 1, 100, 100), screen({}, 77, 100, 100, 100)};
    EXPECT_EQ(builtIdentity(screens.screens[1]), u"77"_s);
    const auto selected = selectedScreens(OneScreen{u"77"_s}, screens);
    ASSERT_EQ(selected.size(), 1U);
    EXPECT_EQ(selected.front().persistentID, u"A"_s) << "the choice compares identities alone";
}

TEST(ScreenSelection, aDisplayWithoutAnyIdentityIsBuiltAsMain) {
    Screen bare = screen({}, 1, 100, 100);
    bare.displayID.reset();
    EXPECT_EQ(builtIdentity(bare), u"main"_s);
}

} // namespace
} // namespace zeph
