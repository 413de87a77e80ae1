// SPDX-License-Identifier: MIT
#include "adapters/places/GeoClueFixture.h"
#include "adapters/power/QuietestHold.h"
#include "support/LeastGrowth.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

class GeoClueEndurance : public GeoClueFixture {
protected:
    /// The service appears, tells a fix on the second of two requests, and vanishes in the middle
    /// of the first.
    void appearAndVanish() {
        delegate.clear();
        geoclue.calls.clear();
        geoclue.appear();
        client->requestLocation();
        ASSERT_TRUE(called(u"Start"_s));
        geoclue.vanish();
        ASSERT_TRUE(answered(1));
        geoclue.calls.clear();
        geoclue.forgetLocations();
        geoclue.atStart = {{u"Latitude"_s, 38.72}, {u"Longitude"_s, -9.14}};
        geoclue.appear();
        client->requestLocation();
        ASSERT_TRUE(answered(2));
        ASSERT_FALSE(delegate.fixes.empty());
        EXPECT_EQ(delegate.fixes.back().front(), lisbon);
        geoclue.vanish();
        geoclue.atStart = {};
    }
};

TEST_F(GeoClueEndurance, followsRestartsWithoutGrowth) {
    listenWithConsent();
    for (int warmUp = 0; warmUp < 20; ++warmUp) {
        appearAndVanish();
    }
    const int enough = 40 * 66;
    const auto growth = leastGrowth(enough, [&] {
        for (int cycle = 0; cycle < 20; ++cycle) {
            appearAndVanish();
            if (HasFatalFailure()) {
                return;
            }
        }
    });
    RecordProperty("growth", static_cast<int>(growth));
    EXPECT_LT(growth, enough) << "less than 66 bytes a restart";
}

TEST_F(GeoClueEndurance, neverHoldsTheMainThreadForAServiceThatDoesNotAnswer) {
    geoclue.mute = {u"GetClient"_s, u"Set"_s, u"Start"_s, u"GetAll"_s};
    geoclue.appear();
    const double hold = quietestHoldMs([&](const MainThreadWatch &watch) {
        delegate.clear();
        geoclue.calls.clear();
        listenWithConsent({.fix = std::chrono::milliseconds(100)});
        client->requestLocation();
        EXPECT_TRUE(eventually([&] { return delegate.answers() == 1 && watch.beats() > 50; }));
    });
    RecordProperty("hold", std::to_string(hold));
    EXPECT_LT(hold, 5);
}

TEST_F(GeoClueEndurance, neverHoldsTheMainThreadInAWholeConversation) {
    geoclue.appear();
    geoclue.atStart = {{u"Latitude"_s, 38.72}, {u"Longitude"_s, -9.14}};
    listenWithConsent();
    const double hold = quietestHoldMs([&](const MainThreadWatch &watch) {
        delegate.clear();
        client->requestLocation();
        EXPECT_TRUE(eventually([&] { return delegate.answers() == 1 && watch.beats() > 50; }));
    });
    RecordProperty("hold", std::to_string(hold));
    EXPECT_LT(hold, 5);
}

} // namespace

} // namespace zeph
