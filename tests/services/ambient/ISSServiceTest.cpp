// SPDX-License-Identifier: MIT
#include "services/ambient/ISSService.h"

#include "base/SurfaceDistance.h"
#include "services/ambient/BrokenAnswers.h"
#include "services/ambient/LocationManager.h"
#include "services/ambient/ServiceFixture.h"
#include "support/FakeLocation.h"
#include "support/Fixture.h"
#include "support/QtPrinters.h"
#include "support/RequestText.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr Coordinate berlin{52.52, 13.405};
constexpr Coordinate overVienna{48.201563418901, 16.372208471205};
const Placemark vienna{.locality = u"Vienna"_s,
                       .administrativeArea = u"Lower Austria"_s,
                       .country = u"Austria"_s,
                       .ocean = std::nullopt,
                       .inlandWater = std::nullopt};

class ISSServiceTest : public ServiceFixture {
protected:
    void fetch() {
        service->fetch([this](const auto &info) {
            ++calls;
            got = info;
        });
        settle();
    }

    /// What is told with these placemarks for an answer.
    std::optional<ISSInfo> fetchWith(const std::vector<Placemark> &placemarks) {
        fetch();
        geocoder.questions.back().answer(placemarks);
        return got;
    }

    FakeGeocoder geocoder;
    LocationManager location{nullptr, nullptr};
    std::unique_ptr<ISSService> service =
        std::make_unique<ISSService>(http, endpoints, background, &geocoder, location);
    int calls = 0;
    std::optional<ISSInfo> got;
};

std::optional<QString> nameOf(const Placemark &placemark) {
    return ISSService::placeName({placemark});
}

} // namespace

TEST_F(ISSServiceTest, asksForThePositionAndThenForItsName) {
    answer(fixture("station/25544.json"));
    fetch();
    ASSERT_EQ(requestCount(), 1U);
    EXPECT_EQ(requestText(http.requests().front()),
              "GET https://api.wheretheiss.at/v1/satellites/25544\nAccept: application/json");
    ASSERT_EQ(geocoder.questions.size(), 1U);
    EXPECT_EQ(geocoder.questions.front().position, overVienna);
    EXPECT_EQ(calls, 0);
    geocoder.questions.front().answer({vienna});
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(got, (ISSInfo{u"Vienna, Austria"_s, std::nullopt, 421}));
}

TEST_F(ISSServiceTest, tellsTheWayFromTheOwnPosition) {
    answer(fixture("station/25544.json"));
    location.locationsUpdated({berlin});
    const auto info = fetchWith({vienna});
    ASSERT_TRUE(info && info->distanceKm);
    EXPECT_EQ(*info->distanceKm, surfaceDistanceMeters(berlin, overVienna) / 1000.0);
    EXPECT_NEAR(*info->distanceKm, 526, 2);
}

TEST_F(ISSServiceTest, takesTheOwnPositionThatIsKnownWhenTheNameComes) {
    answer(fixture("station/25544.json"));
    fetch();
    location.locationsUpdated({overVienna});
    geocoder.questions.front().answer({});
    EXPECT_EQ(got, (ISSInfo{std::nullopt, 0.0, 421}));
}

TEST_F(ISSServiceTest, roundsAnAltitudeOf420Point6To421) {
    answer(R"({"latitude":1,"longitude":2,"altitude":420.6})");
    EXPECT_EQ(fetchWith({})->altitudeKm, 421.0);
    answer(R"({"latitude":1,"longitude":2,"altitude":420.5})");
    EXPECT_EQ(fetchWith({})->altitudeKm, 421.0);
    answer(R"({"latitude":1,"longitude":2,"altitude":420.4})");
    EXPECT_EQ(fetchWith({})->altitudeKm, 420.0);
    answer(R"({"latitude":1,"longitude":2,"altitude":1e300})");
    EXPECT_EQ(fetchWith({})->altitudeKm, 0) << "what can't be is not told";
}

TEST_F(ISSServiceTest, hasAnAltitudeOf0WhereNoneIsTold) {
    for (const char *body :
         {R"({"latitude":1,"longitude":2})", R"({"latitude":1,"longitude":2,"altitude":"420"})",
          R"({"latitude":1,"longitude":2,"altitude":null})"}) {
        answer(body);
        EXPECT_EQ(fetchWith({}), (ISSInfo{std::nullopt, std::nullopt, 0})) << body;
    }
}

TEST_F(ISSServiceTest, needsLatitudeAndLongitudeAsNumbers) {
    for (const char *body :
         {R"({"latitude":1})", R"({"longitude":2})", R"({"latitude":"1","longitude":2})",
          R"({"latitude":1,"longitude":true})", R"([{"latitude":1,"longitude":2}])"}) {
        got = ISSInfo{};
        answer(body);
        fetch();
        EXPECT_EQ(got, std::nullopt) << body;
    }
    EXPECT_TRUE(geocoder.questions.empty());
}

TEST_F(ISSServiceTest, isAbsentAfterAnyFailureOfThePosition) {
    int expected = 0;
    for (const BrokenAnswer &broken : brokenAnswers()) {
        got = ISSInfo{};
        server = broken.handler;
        fetch();
        EXPECT_EQ(got, std::nullopt) << broken.name;
        EXPECT_EQ(calls, ++expected) << broken.name;
    }
    EXPECT_TRUE(geocoder.questions.empty());
}

TEST_F(ISSServiceTest, asksEveryTime) {
    answer(fixture("station/25544.json"));
    fetchWith({});
    fetchWith({});
    EXPECT_EQ(requestCount(), 2U);
}

TEST_F(ISSServiceTest, tellsAltitudeAndWayWithoutAGeocoder) {
    answer(fixture("station/25544.json"));
    service = std::make_unique<ISSService>(http, endpoints, background, nullptr, location);
    location.locationsUpdated({overVienna});
    fetch();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(got, (ISSInfo{std::nullopt, 0.0, 421}));
}

TEST_F(ISSServiceTest, isAbsentWhenCancelled) {
    http.cancelAll();
    got = ISSInfo{};
    fetch();
    EXPECT_EQ(got, std::nullopt);
    EXPECT_EQ(calls, 1);
}

TEST_F(ISSServiceTest, tellsNothingAfterItsEnd) {
    answer(fixture("station/25544.json"));
    fetch();
    service->fetch([this](const auto &) { ++calls; });
    service.reset();
    settle();
    geocoder.questions.front().answer({vienna});
    EXPECT_EQ(geocoder.questions.size(), 1U);
    EXPECT_EQ(calls, 0);
}

TEST(ISSServicePlaceName, namesTheCityAndItsCountryOverLand) {
    EXPECT_EQ(nameOf(vienna), u"Vienna, Austria"_s);
    Placemark village = vienna;
    village.locality.reset();
    EXPECT_EQ(nameOf(village), u"Lower Austria, Austria"_s);
    village.country.reset();
    EXPECT_EQ(nameOf(village), u"Lower Austria"_s);
}

TEST(ISSServicePlaceName, namesTheOceanOverTheOcean) {
    Placemark placemark;
    placemark.ocean = u"Pacific Ocean"_s;
    EXPECT_EQ(nameOf(placemark), u"Pacific Ocean"_s);
    placemark.inlandWater = u"Lake"_s;
    EXPECT_EQ(nameOf(placemark), u"Pacific Ocean"_s);
    placemark.country = u"Chile"_s;
    EXPECT_EQ(nameOf(placemark), u"Chile"_s);
}

TEST(ISSServicePlaceName, namesTheLakeOverALake) {
    Placemark placemark;
    placemark.inlandWater = u"Caspian Sea"_s;
    EXPECT_EQ(nameOf(placemark), u"Caspian Sea"_s);
}

TEST(ISSServicePlaceName, isAbsentForAPlacemarkWithNothing) {
    EXPECT_EQ(nameOf({}), std::nullopt);
    EXPECT_EQ(ISSService::placeName({}), std::nullopt);
    EXPECT_EQ(ISSService::placeName({{}, vienna}), std::nullopt); // the first one counts
}

} // namespace zeph
