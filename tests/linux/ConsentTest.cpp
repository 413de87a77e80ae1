// SPDX-License-Identifier: MIT
#include "platform/linux/Consent.h"

#include "support/FakeUserDefaults.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(Consent, isGrantedByTheNumberThreeOnly) {
    FakeUserDefaults defaults;
    const Consent consent = Consent::forInput(defaults);
    EXPECT_FALSE(consent.isGranted());
    for (const double refused : {0.0, 1.0, 2.0, 3.5, 4.0}) {
        defaults.set(u"zeph.consent.input"_s, refused);
        EXPECT_FALSE(consent.isGranted()) << refused;
    }
    defaults.set(u"zeph.consent.input"_s, u"3"_s);
    EXPECT_FALSE(consent.isGranted());
    defaults.set(u"zeph.consent.input"_s, true);
    EXPECT_FALSE(consent.isGranted());
    defaults.set(u"zeph.consent.input"_s, 3.0);
    EXPECT_TRUE(consent.isGranted());
}

TEST(Consent, isGoneAsSoonAsItIsWithdrawn) {
    FakeUserDefaults defaults;
    defaults.set(u"zeph.consent.input"_s, 3.0);
    const Consent consent = Consent::forInput(defaults);
    ASSERT_TRUE(consent.isGranted());
    defaults.remove(u"zeph.consent.input"_s);
    EXPECT_FALSE(consent.isGranted());
}

} // namespace zeph
