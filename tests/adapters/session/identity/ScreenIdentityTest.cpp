// SPDX-License-Identifier: MIT
#include "adapters/session/identity/ScreenIdentity.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(ScreenIdentity, joinsWhatTheDisplayTellsOfItself) {
    EXPECT_EQ(screenIdentities({{u"Acme"_s, u"P27"_s, u"XY12"_s, u"DP-1"_s}}),
              std::vector{u"Acme P27 XY12"_s});
    EXPECT_EQ(screenIdentities({{QString(), QString(), u" XY12 "_s, u"DP-1"_s}}),
              std::vector{u"XY12"_s});
}

TEST(ScreenIdentity, isTheConnectorOfADisplayThatTellsNothing) {
    EXPECT_EQ(screenIdentities({{u"Acme"_s, QString(), QString(), u"HDMI-1"_s}}),
              std::vector{u"HDMI-1"_s});
}

TEST(ScreenIdentity, staysTheSameOnAnotherConnector) {
    EXPECT_EQ(screenIdentities({{u"Acme"_s, u"P27"_s, u"XY12"_s, u"DP-1"_s}}),
              screenIdentities({{u"Acme"_s, u"P27"_s, u"XY12"_s, u"DP-2"_s}}));
}

TEST(ScreenIdentity, namesTheConnectorOfADisplayWithoutASerialNumberWhateverElseIsPlugged) {
    const ScreenFacts panel{u"Acme"_s, u"P27"_s, QString(), u"DP-1"_s};
    const ScreenFacts twin{u"Acme"_s, u"P27"_s, u" "_s, u"DP-2"_s};
    const ScreenFacts other{u"Acme"_s, u"P24"_s, QString(), u"DP-3"_s};
    EXPECT_EQ(screenIdentities({panel}), std::vector{u"Acme P27 @DP-1"_s});
    EXPECT_EQ(screenIdentities({panel, other, twin}),
              (std::vector{u"Acme P27 @DP-1"_s, u"Acme P24 @DP-3"_s, u"Acme P27 @DP-2"_s}));
}

TEST(ScreenIdentity, tellsEqualSerialNumbersApartByTheirConnectors) {
    EXPECT_EQ(screenIdentities({{u"Acme"_s, u"P27"_s, u"1"_s, u"DP-1"_s},
                                {u"Acme"_s, u"P27"_s, u"2"_s, u"DP-3"_s},
                                {u"Acme"_s, u"P27"_s, u"1"_s, u"DP-2"_s}}),
              (std::vector{u"Acme P27 1 @DP-1"_s, u"Acme P27 2"_s, u"Acme P27 1 @DP-2"_s}));
}

TEST(ScreenNames, areTheModelElseTheMakerAndTheConnectorElseThatAlone) {
    EXPECT_EQ(screenNames({{u"ACM"_s, u" Acme  P27 "_s, u"XY12"_s, u"DP-1"_s},
                           {u"ACM"_s, QString(), u"7"_s, u"DP-2"_s},
                           {QString(), u" "_s, QString(), u"VGA-1"_s}}),
              (std::vector{u"Acme P27"_s, u"ACM DP-2"_s, u"VGA-1"_s}));
}

TEST(ScreenNames, ofTwinsNameTheirConnectors) {
    EXPECT_EQ(screenNames({{u"ACM"_s, u"P27"_s, u"1"_s, u"DP-1"_s},
                           {u"ACM"_s, u"P24"_s, u"2"_s, u"DP-3"_s},
                           {u"ACM"_s, u"P27"_s, u"3"_s, u"DP-2"_s}}),
              (std::vector{u"P27 (DP-1)"_s, u"P24"_s, u"P27 (DP-2)"_s}));
}

TEST(ScreenIdentity, numbersConnectorsTheSameInEveryProcess) {
    EXPECT_EQ(connectorNumber(u"DP-1"_s), connectorNumber(u"DP-1"_s));
    EXPECT_NE(connectorNumber(u"DP-1"_s), connectorNumber(u"DP-2"_s));
    EXPECT_EQ(connectorNumber(u"a"_s), 0xE40C292CU); // as the published test vector says
}

} // namespace zeph
