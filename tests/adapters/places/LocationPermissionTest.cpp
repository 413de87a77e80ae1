// SPDX-License-Identifier: MIT
#include "adapters/places/LocationPermission.h"

#include "settings/StoredConsent.h"
#include "support/FakeUserDefaults.h"

#include <gtest/gtest.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class LocationPermissionTest : public testing::Test {
protected:
    FakeUserDefaults defaults;
    std::chrono::steady_clock::time_point now;
    StoredConsent consent{defaults, u"zeph.consent.location"_s};
    LocationPermission permission{consent, [this] { return now; }};
};

} // namespace

TEST_F(LocationPermissionTest, isNotDeterminedAtFirst) {
    EXPECT_EQ(permission.status(), LocationAuthorization::notDetermined);
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(LocationPermissionTest, keepsAGrantForTheNextStart) {
    permission.grant();
    EXPECT_EQ(permission.status(), LocationAuthorization::authorized);
    EXPECT_EQ(defaults.get<double>(u"zeph.consent.location"_s), 3.0);
    EXPECT_EQ(LocationPermission(consent).status(), LocationAuthorization::authorized);
    permission.grant();
    EXPECT_EQ(defaults.writes, 1) << "the file is not written anew for nothing";
}

TEST_F(LocationPermissionTest, takesTheStoredNumbersAsTheyAre) {
    for (const int stored : {0, 1, 2, 3}) {
        defaults.set(u"zeph.consent.location"_s, static_cast<double>(stored));
        EXPECT_EQ(static_cast<int>(permission.status()), stored);
    }
    defaults.set(u"zeph.consent.location"_s, true);
    EXPECT_EQ(permission.status(), LocationAuthorization::notDetermined);
}

TEST_F(LocationPermissionTest, believesARefusalForAMinute) {
    permission.grant();
    permission.refuse();
    EXPECT_EQ(permission.status(), LocationAuthorization::denied);
    now += std::chrono::milliseconds(59'999);
    EXPECT_EQ(permission.status(), LocationAuthorization::denied);
    now += std::chrono::milliseconds(1);
    EXPECT_EQ(permission.status(), LocationAuthorization::notDetermined);
    permission.grant();
    EXPECT_EQ(permission.status(), LocationAuthorization::authorized);
}

TEST_F(LocationPermissionTest, tellsThatTheConsentWasGivenOrWithdrawn) {
    std::vector<LocationAuthorization> told;
    const auto subscription = permission.subscribe([&] { told.push_back(permission.status()); });
    consent.set(ConsentState::granted);
    permission.refuse();
    consent.set(ConsentState::denied);
    consent.set(ConsentState::granted);
    EXPECT_EQ(told, (std::vector{LocationAuthorization::authorized, LocationAuthorization::denied,
                                 LocationAuthorization::authorized}))
        << "a consent that is given anew outweighs an earlier refusal of the system";
}

TEST_F(LocationPermissionTest, leavesTheUsersConsentToTheNextStartAfterARefusal) {
    permission.grant();
    permission.refuse();
    EXPECT_EQ(LocationPermission(consent).status(), LocationAuthorization::authorized);
}

TEST_F(LocationPermissionTest, remembersARefusalUntilTheConsentIsGivenAnew) {
    EXPECT_EQ(permission.hindrance(), LocationHindrance::none);
    permission.grant();
    permission.refuse();
    now += std::chrono::hours(1);
    EXPECT_EQ(permission.hindrance(), LocationHindrance::refused);
    permission.grant();
    EXPECT_EQ(permission.hindrance(), LocationHindrance::none);
    permission.refuse();
    consent.set(ConsentState::denied);
    EXPECT_EQ(permission.hindrance(), LocationHindrance::none);
}

TEST_F(LocationPermissionTest, keepsWhatElseIsMissingWhateverTheUserAnswers) {
    permission.setHindrance(LocationHindrance::noAgent);
    permission.grant();
    EXPECT_EQ(permission.hindrance(), LocationHindrance::noAgent);
    consent.set(ConsentState::denied);
    EXPECT_EQ(permission.hindrance(), LocationHindrance::noAgent);
}

} // namespace zeph
