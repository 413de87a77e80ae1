// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"
#include "widgets/WidgetFixture.h"

#include <QBuffer>
#include <QImage>

namespace zeph {

using namespace Qt::StringLiterals;

using WeatherWidget = WidgetFixture;
using AirQualityWidget = WidgetFixture;
using IssWidget = WidgetFixture;
using QuoteWidget = WidgetFixture;
using OnThisDayWidget = WidgetFixture;
using NasaWidget = WidgetFixture;

namespace {

QByteArray encodedPicture() {
    QImage picture(8, 8, QImage::Format_RGB32);
    picture.fill(Qt::darkBlue);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    return bytes;
}

} // namespace

TEST_F(WeatherWidget, waitsForALocation) {
    EXPECT_EQ(texts(weatherWidget(context)), QStringList{u"Weather will appear with location"_s});
    EXPECT_EQ(symbols(weatherWidget(context)), QStringList{u"location.slash"_s});
}

TEST_F(WeatherWidget, tellsTemperaturePlaceAndSky) {
    preferences.setUnitSystem(UnitSystem::metric);
    state.weather = WeatherInfo{11.6, {}, 2, true, u"Lisbon"_s, at(9, 40)};
    EXPECT_EQ(texts(weatherWidget(context)), QStringList{u"12°C in Lisbon · partly cloudy"_s});
    EXPECT_EQ(symbols(weatherWidget(context)), QStringList{u"cloud.sun.fill"_s});
}

TEST_F(WeatherWidget, showsTheMoonAtNight) {
    state.weather = WeatherInfo{3, {}, 0, false, {}, at(9, 40)};
    EXPECT_EQ(symbols(weatherWidget(context)), QStringList{u"moon.stars.fill"_s});
}

TEST_F(AirQualityWidget, waitsForALocation) {
    EXPECT_EQ(texts(airQualityWidget(context)),
              QStringList{u"Air quality will appear with location"_s});
    EXPECT_EQ(symbols(airQualityWidget(context)), QStringList{u"aqi.medium"_s});
}

TEST_F(AirQualityWidget, namesTheAirAtEveryBoundary) {
    const std::vector<std::pair<qint64, QString>> rows{
        {0, u"good air"_s},
        {50, u"good air"_s},
        {51, u"moderate air"_s},
        {100, u"moderate air"_s},
        {101, u"unhealthy for sensitive groups"_s},
        {150, u"unhealthy for sensitive groups"_s},
        {151, u"unhealthy air"_s},
        {200, u"unhealthy air"_s},
        {201, u"very unhealthy air"_s},
        {300, u"very unhealthy air"_s},
        {301, u"hazardous air"_s},
    };
    for (const auto &[aqi, label] : rows) {
        state.airQuality = AirQualityInfo{aqi, at(9, 40)};
        EXPECT_EQ(texts(airQualityWidget(context)),
                  QStringList{u"AQI %1 · %2"_s.arg(QString::number(aqi), label)});
    }
}

TEST_F(IssWidget, isEmptyWithoutAPosition) {
    EXPECT_TRUE(draw(issWidget(context)).empty());
}

TEST_F(IssWidget, tellsItsHeightWhenTheUsersPlaceIsUnknown) {
    preferences.setUnitSystem(UnitSystem::metric);
    state.iss = ISSInfo{{}, {}, 421.4};
    EXPECT_EQ(texts(issWidget(context)), QStringList{u"ISS in orbit · 421 km up"_s});
    EXPECT_EQ(symbols(issWidget(context)), QStringList{u"globe.americas"_s});
}

TEST_F(IssWidget, passesNearBelow1200Kilometers) {
    state.iss = ISSInfo{u"Portugal"_s, 1199.9, 421};
    EXPECT_EQ(texts(issWidget(context)),
              QStringList{u"ISS over Portugal · passing near you now"_s});
}

TEST_F(IssWidget, namesTheDistanceFrom1200KilometersOn) {
    preferences.setUnitSystem(UnitSystem::metric);
    state.iss = ISSInfo{u"Portugal"_s, 1200, 421};
    EXPECT_EQ(texts(issWidget(context)), QStringList{u"ISS over Portugal · 1,200 km from you"_s});
}

TEST_F(IssWidget, setsAPlaceFromRightToLeftApart) {
    state.iss = ISSInfo{u"القاهرة"_s, 500, 421};
    EXPECT_EQ(texts(issWidget(context)),
              QStringList{u"ISS over \u2068القاهرة\u2069 · passing near you now"_s});
}

TEST_F(IssWidget, keepsAPlaceThatLooksLikeAPlaceholder) {
    preferences.setUnitSystem(UnitSystem::metric);
    state.iss = ISSInfo{u"%2"_s, 2000, 421};
    EXPECT_EQ(texts(issWidget(context)), QStringList{u"ISS over %2 · 2,000 km from you"_s});
}

TEST_F(IssWidget, isDrawnLikeACalmLine) {
    state.iss = ISSInfo{u"Portugal"_s, 10, 421};
    const View line = issWidget(context);
    EXPECT_EQ(symbolItem(line, u"globe.americas"_s).box.size(), symbolBox(15));
    expectColor(symbolItem(line, u"globe.americas"_s).color, textColor(0.9));
    const TextItem sentence = textItem(line, u"ISS over Portugal · passing near you now"_s);
    EXPECT_EQ(sentence.style.font.size, 17);
    expectColor(sentence.style.color, textColor(0.85));
}

TEST_F(QuoteWidget, quotesInItalicsOverTheAuthor) {
    state.quote = QuoteInfo{u"Less, but better."_s, u"A. Designer"_s};
    const View quote = quoteWidget(context);
    EXPECT_EQ(texts(quote), (QStringList{u"“Less, but better.”"_s, u"- A. Designer"_s}));
    const TextItem words = textItem(quote, u"“Less, but better.”"_s);
    EXPECT_EQ(words.style.font.size, 17);
    EXPECT_EQ(words.style.font.weight, FontWeight::light);
    EXPECT_TRUE(words.style.font.italic);
    expectColor(words.style.color, textColor(0.85));
    const TextItem author = textItem(quote, u"- A. Designer"_s);
    EXPECT_EQ(author.style.font.size, 13);
    EXPECT_EQ(author.style.font.weight, FontWeight::regular);
    EXPECT_FALSE(author.style.font.italic);
    expectColor(author.style.color, textColor(0.55));
    EXPECT_DOUBLE_EQ(author.origin.y(), lineHeight(17) + 6);
}

TEST_F(QuoteWidget, wrapsWithin520Points) {
    state.quote = QuoteInfo{QString(100, u'a'), u"Someone"_s};
    const View quote = quoteWidget(context);
    EXPECT_LE(naturalSize(quote).width(), 520);
    EXPECT_EQ(texts(quote).size(), 3);
}

TEST_F(QuoteWidget, isEmptyWithoutAQuote) {
    EXPECT_TRUE(draw(quoteWidget(context)).empty());
}

TEST_F(OnThisDayWidget, tellsTheYearAndWraps) {
    state.onThisDay = OnThisDayInfo{u"1930"_s, QString(u"ninth "_s).repeated(12)};
    const QStringList drawn = texts(onThisDayWidget(context));
    EXPECT_EQ(drawn.at(0), u"ON THIS DAY"_s);
    EXPECT_TRUE(drawn.at(1).startsWith(u"1930 · ninth"_s));
    EXPECT_EQ(drawn.size(), 3);
    const TextItem words = textItem(onThisDayWidget(context), drawn.at(1));
    EXPECT_EQ(words.style.font.size, 15);
    EXPECT_EQ(words.style.font.weight, FontWeight::light);
    expectColor(words.style.color, textColor(0.85));
}

TEST_F(OnThisDayWidget, isEmptyWithoutAnEvent) {
    EXPECT_TRUE(draw(onThisDayWidget(context)).empty());
}

TEST_F(NasaWidget, showsThePictureOverItsTitle) {
    state.apod = APODInfo{u"A Spiral in Andromeda"_s, u"2026-03-12"_s, encodedPicture()};
    const std::vector<DrawItem> items = draw(nasaWidget(context));
    const auto picture = std::find_if(items.begin(), items.end(), [](const DrawItem &item) {
        return std::holds_alternative<ImageItem>(item);
    });
    ASSERT_NE(picture, items.end());
    EXPECT_EQ(std::get<ImageItem>(*picture).rect.size(), QSizeF(260, 150));
    EXPECT_EQ(std::get<ImageItem>(*picture).cornerRadius, 12);
    ASSERT_EQ(shapes(nasaWidget(context)).size(), 1U);
    expectColor(*shapes(nasaWidget(context)).front().outline, textColor(0.08));
    const TextItem title = textItem(nasaWidget(context), u"A Spiral in Andromeda"_s);
    EXPECT_EQ(title.style.font.size, 14);
    EXPECT_EQ(title.style.font.weight, FontWeight::light);
    expectColor(title.style.color, textColor(0.85));
}

TEST_F(NasaWidget, bytesThatAreNoPictureTakeNoRoom) {
    state.apod = APODInfo{u"A Spiral"_s, u"2026-03-12"_s, QByteArray("<html>")};
    const QSizeF withNoise = naturalSize(nasaWidget(context));
    state.apod = APODInfo{u"A Spiral"_s, u"2026-03-12"_s, {}};
    EXPECT_EQ(withNoise, naturalSize(nasaWidget(context)));
    EXPECT_EQ(texts(nasaWidget(context)), (QStringList{u"PICTURE OF THE DAY"_s, u"A Spiral"_s}));
}

} // namespace zeph
