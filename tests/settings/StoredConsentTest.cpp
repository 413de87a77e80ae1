// SPDX-License-Identifier: MIT
#include "settings/StoredConsent.h"

#include "settings/Consents.h"
#include "support/FakeUserDefaults.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString inputKey = u"zeph.consent.input"_s;

TEST(StoredConsent, isGrantedByTheNumberThreeOnly) {
    FakeUserDefaults defaults;
    const StoredConsent consent(defaults, inputKey);
    EXPECT_FALSE(consent.isGranted());
    for (const double refused : {0.0, 1.0, 2.0, 3.5, 4.0}) {
        defaults.set(inputKey, refused);
        EXPECT_FALSE(consent.isGranted()) << refused;
    }
    defaults.set(inputKey, u"3"_s);
    EXPECT_FALSE(consent.isGranted());
    defaults.set(inputKey, true);
    EXPECT_FALSE(consent.isGranted());
    defaults.set(inputKey, 3.0);
    EXPECT_TRUE(consent.isGranted());
}

TEST(StoredConsent, isGoneAsSoonAsItIsWithdrawn) {
    FakeUserDefaults defaults;
    defaults.set(inputKey, 3.0);
    const StoredConsent consent(defaults, inputKey);
    ASSERT_TRUE(consent.isGranted());
    defaults.remove(inputKey);
    EXPECT_FALSE(consent.isGranted());
}

TEST(StoredConsent, tellsEveryListenerOfAnAnswerThatIsAnotherOne) {
    FakeUserDefaults defaults;
    StoredConsent consent(defaults, inputKey);
    int first = 0;
    int second = 0;
    const Subscription one = consent.subscribe([&] { ++first; });
    Subscription other = consent.subscribe([&] {
        EXPECT_TRUE(consent.isGranted());
        ++second;
    });
    consent.set(ConsentState::granted);
    consent.set(ConsentState::granted);
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 1);
    EXPECT_EQ(defaults.get<double>(inputKey), 3.0);
    other = {};
    consent.set(ConsentState::denied);
    EXPECT_EQ(first, 2);
    EXPECT_EQ(second, 1);
}

TEST(Consents, lieUnderAKeyEach) {
    FakeUserDefaults defaults;
    Consents consents(defaults);
    consents.input.set(ConsentState::granted);
    consents.location.set(ConsentState::denied);
    consents.calendar.set(ConsentState::restricted);
    consents.reminders.set(ConsentState::granted);
    EXPECT_EQ(defaults.get<double>(inputKey), 3.0);
    EXPECT_EQ(defaults.get<double>(u"zeph.consent.location"_s), 2.0);
    EXPECT_EQ(defaults.get<double>(u"zeph.consent.calendar"_s), 1.0);
    EXPECT_EQ(defaults.get<double>(u"zeph.consent.reminders"_s), 3.0);
}

} // namespace

} // namespace zeph
