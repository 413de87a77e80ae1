// SPDX-License-Identifier: MIT
#include "host/PermissionWords.h"

#include "ports/LocationClient.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(PermissionWords, sayWhetherItIsAllowed) {
    EXPECT_EQ(permissionState(true), (PermissionState{u"Allowed"_s, {}}));
    EXPECT_EQ(permissionState(false), (PermissionState{u"Not allowed"_s, {}}));
}

TEST(PermissionWords, ofInputTimingAreThoseOfAnyPermissionWhereKeysCanBeCounted) {
    for (const bool isGranted : {true, false}) {
        EXPECT_EQ(inputState(isGranted, true, false), permissionState(isGranted));
    }
}

TEST(PermissionWords, tellThatKeysCanNotBeCounted) {
    const QString note = u"Your desktop does not tell how often keys are pressed, so there is no "
                         u"typing rhythm here."_s;
    EXPECT_EQ(inputState(false, false, false), (PermissionState{u"Not allowed"_s, note, false}));
    EXPECT_EQ(inputState(true, false, false), (PermissionState{u"Allowed"_s, note, false}));
    EXPECT_TRUE(inputState(false, false, true).isOffered) << "something comes of it";
    EXPECT_EQ(inputState(false, false, true).note,
              note + u" If you allow this, Tavi can still see which app is in front."_s);
}

TEST(PermissionWords, ofALocationWithNothingInTheWayAreThoseOfAnyPermission) {
    for (const bool isGranted : {true, false}) {
        EXPECT_EQ(locationState(isGranted, LocationHindrance::none), permissionState(isGranted));
    }
}

TEST(PermissionWords, tellTheServicesRefusalWhileItIsNotAllowed) {
    EXPECT_EQ(locationState(false, LocationHindrance::refused),
              (PermissionState{u"Not allowed"_s, u"Your desktop's location service refused."_s}));
    EXPECT_EQ(locationState(true, LocationHindrance::refused).note, QString());
}

TEST(PermissionWords, tellWhatStandsInForAnAllowedLocation) {
    EXPECT_EQ(locationState(true, LocationHindrance::noAgent),
              (PermissionState{u"Allowed"_s, u"There is no location agent on this desktop, so the "
                                             u"main city of your time zone stands in."_s}));
    EXPECT_EQ(locationState(true, LocationHindrance::noService),
              (PermissionState{u"Allowed"_s, u"There is no location service on this computer, so "
                                             u"the main city of your time zone stands in."_s}));
}

TEST(PermissionWords, tellOfNoStandInBeforeItIsAllowed) {
    for (const auto hindrance : {LocationHindrance::noAgent, LocationHindrance::noService}) {
        EXPECT_EQ(locationState(false, hindrance), permissionState(false));
    }
}

} // namespace zeph
