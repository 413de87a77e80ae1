// SPDX-License-Identifier: MIT
#include "PreferencesFixture.h"
#include "support/LoggedLines.h"

using namespace Qt::StringLiterals;
using testing::IsEmpty;
using testing::SizeIs;

namespace zeph {

namespace {

using PreferencesLoad = PreferencesFixture;

const DefaultsValue bytes = QByteArray("[]");
const DefaultsValue number = 1.0;
const DefaultsValue yes = true;
const DefaultsValue word = u"1"_s;

TEST_F(PreferencesLoad, anEmptyStoreGivesTheDefaults) {
    EXPECT_EQ(prefs().layoutMode(), WidgetLayoutMode::automatic);
    EXPECT_THAT(prefs().customOrder(), IsEmpty());
    EXPECT_TRUE(prefs().petEnabled());
    EXPECT_EQ(prefs().petKind(), u"cat"_s);
    EXPECT_FALSE(prefs().useSystemNumberFormat());
    EXPECT_EQ(prefs().unitSystem(), UnitSystem::metric);
    EXPECT_FALSE(prefs().use24HourClock());
    EXPECT_EQ(prefs().backgroundHex(), u"#0D0F1F"_s);
    EXPECT_EQ(prefs().backgroundMode(), BackgroundMode::solid);
    EXPECT_EQ(prefs().transparentDim(), 0.35);
    EXPECT_EQ(prefs().displaySelection(), DisplaySelection(AllDisplays{}));
    EXPECT_EQ(prefs().desktopSelection(), DesktopSelection(AllDesktops{}));
    EXPECT_THAT(prefs().countdowns(), IsEmpty());
    for (const WidgetKind kind : allWidgetKinds()) {
        EXPECT_EQ(prefs().placement(kind), defaultPlacement(kind));
        EXPECT_EQ(prefs().size(kind), defaultSize(kind));
    }
    EXPECT_EQ(defaults.writes, 0);
}

TEST_F(PreferencesLoad, aValueOfAnotherTypeReadsAsTheDefault) {
    for (const DefaultsValue &wrong : {number, yes, word}) {
        store(u"zeph.widgets.placements"_s, wrong);
        store(u"zeph.widgets.sizes"_s, wrong);
        store(u"zeph.widgets.customOrder"_s, wrong);
        store(u"zeph.countdowns"_s, wrong);
        EXPECT_THAT(relaunched().customOrder(), IsEmpty());
        EXPECT_THAT(prefs().countdowns(), IsEmpty());
        EXPECT_EQ(prefs().placement(WidgetKind::clock), WidgetPlacement::always);
        EXPECT_EQ(prefs().size(WidgetKind::clock), WidgetSizeOption::medium);
    }
    for (const DefaultsValue &wrong : {number, word, bytes}) {
        store(u"zeph.pet.enabled"_s, wrong);
        store(u"zeph.numbers.system"_s, wrong);
        store(u"zeph.clock.24h"_s, wrong);
        EXPECT_TRUE(relaunched().petEnabled());
        EXPECT_FALSE(prefs().useSystemNumberFormat());
        EXPECT_FALSE(prefs().use24HourClock());
    }
    for (const DefaultsValue &wrong : {number, yes, bytes}) {
        for (const char16_t *key :
             {u"zeph.widgets.layoutMode", u"zeph.pet.kind", u"zeph.units", u"zeph.background.hex",
              u"zeph.background.mode", u"zeph.display.selection", u"zeph.desktop.selection"}) {
            store(QString::fromUtf16(key), wrong);
        }
        EXPECT_EQ(relaunched().layoutMode(), WidgetLayoutMode::automatic);
        EXPECT_EQ(prefs().petKind(), u"cat"_s);
        EXPECT_EQ(prefs().unitSystem(), UnitSystem::metric);
        EXPECT_EQ(prefs().backgroundHex(), u"#0D0F1F"_s);
        EXPECT_EQ(prefs().backgroundMode(), BackgroundMode::solid);
        EXPECT_EQ(prefs().displaySelection(), DisplaySelection(AllDisplays{}));
        EXPECT_EQ(prefs().desktopSelection(), DesktopSelection(AllDesktops{}));
    }
    for (const DefaultsValue &wrong : {yes, word, bytes}) {
        store(u"zeph.background.transparentDim"_s, wrong);
        EXPECT_EQ(relaunched().transparentDim(), 0.35);
    }
}

TEST_F(PreferencesLoad, aValueThatIsNotUnderstoodIsLoggedByItsKey) {
    store(u"zeph.widgets.layoutMode"_s, u"manual"_s);
    store(u"zeph.countdowns"_s, QByteArray("[{}]"));
    store(u"zeph.units"_s, 1.0);
    const QStringList lines = loggedLines(u"zeph.settings"_s, [this] { relaunched(); });
    EXPECT_THAT(lines, testing::ElementsAre(
                           u"zeph.units can't be understood, so its default counts"_s,
                           u"zeph.countdowns can't be understood, so its default counts"_s));
}

TEST_F(PreferencesLoad, readsWhatIsStored) {
    store(u"zeph.widgets.layoutMode"_s, u"manual"_s);
    storeJson(u"zeph.widgets.customOrder"_s, R"(["weather", "no such widget", "clock"])");
    store(u"zeph.pet.enabled"_s, false);
    store(u"zeph.pet.kind"_s, u"dog"_s);
    store(u"zeph.numbers.system"_s, true);
    store(u"zeph.units"_s, u"imperial"_s);
    store(u"zeph.clock.24h"_s, true);
    store(u"zeph.background.hex"_s, u"#123456"_s);
    store(u"zeph.background.mode"_s, u"auto"_s);
    store(u"zeph.background.transparentDim"_s, 0.8);
    store(u"zeph.display.selection"_s, u"SCREEN-1"_s);
    EXPECT_EQ(prefs().layoutMode(), WidgetLayoutMode::manual);
    EXPECT_EQ(prefs().customOrder(), (QStringList{u"weather"_s, u"no such widget"_s, u"clock"_s}));
    EXPECT_FALSE(prefs().petEnabled());
    EXPECT_EQ(prefs().petKind(), u"dog"_s);
    EXPECT_TRUE(prefs().useSystemNumberFormat());
    EXPECT_EQ(prefs().unitSystem(), UnitSystem::imperial);
    EXPECT_TRUE(prefs().use24HourClock());
    EXPECT_EQ(prefs().backgroundHex(), u"#123456"_s);
    EXPECT_EQ(prefs().backgroundMode(), BackgroundMode::automatic);
    EXPECT_EQ(prefs().transparentDim(), 0.8);
    EXPECT_EQ(prefs().displaySelection(), DisplaySelection(OneScreen{u"SCREEN-1"_s}));
}

TEST_F(PreferencesLoad, theOldRevenueChoiceHoldsUntilTheWidgetHasItsOwn) {
    storeJson(u"zeph.widgets.placements"_s, R"({"saas": "off"})");
    for (const auto kind : {WidgetKind::chartmogul, WidgetKind::lemonsqueezy, WidgetKind::dodo}) {
        EXPECT_EQ(prefs().placement(kind), WidgetPlacement::off);
    }
    EXPECT_EQ(prefs().placement(WidgetKind::revenue), WidgetPlacement::always);

    prefs().set(WidgetPlacement::always, WidgetKind::chartmogul);
    EXPECT_EQ(prefs().placement(WidgetKind::chartmogul), WidgetPlacement::always);
    EXPECT_EQ(prefs().placement(WidgetKind::dodo), WidgetPlacement::off);
    EXPECT_EQ(storedJson(u"zeph.widgets.placements"_s), R"({"chartmogul":"always","saas":"off"})");
}

TEST_F(PreferencesLoad, theOldSpendChoiceHoldsForBothSpendWidgets) {
    storeJson(u"zeph.widgets.placements"_s, R"({"aiUsage": "off", "claude": "always"})");
    storeJson(u"zeph.widgets.sizes"_s, R"({"aiUsage": "large", "saas": "small"})");
    EXPECT_EQ(prefs().placement(WidgetKind::openai), WidgetPlacement::off);
    EXPECT_EQ(prefs().placement(WidgetKind::claude), WidgetPlacement::always);
    EXPECT_EQ(prefs().size(WidgetKind::openai), WidgetSizeOption::large);
    EXPECT_EQ(prefs().size(WidgetKind::claude), WidgetSizeOption::large);
    EXPECT_EQ(prefs().size(WidgetKind::dodo), WidgetSizeOption::small);
    EXPECT_EQ(prefs().size(WidgetKind::quote), WidgetSizeOption::medium);
}

TEST_F(PreferencesLoad, oneUnknownPlacementLosesAllOfThemAndStaysStored) {
    const char *json = R"({"clock": "off", "weather": "sometimes"})";
    storeJson(u"zeph.widgets.placements"_s, json);
    EXPECT_EQ(prefs().placement(WidgetKind::clock), WidgetPlacement::always);
    EXPECT_EQ(storedJson(u"zeph.widgets.placements"_s), json);
}

TEST_F(PreferencesLoad, malformedJsonReadsAsEmpty) {
    for (const char *json : {"", "{", "[]", "null", "\"off\"", R"({"clock": true})",
                             R"({"clock": null})", R"({"clock": "OFF"})"}) {
        SCOPED_TRACE(json);
        storeJson(u"zeph.widgets.placements"_s, json);
        EXPECT_EQ(relaunched().placement(WidgetKind::clock), WidgetPlacement::always);
    }
    for (const char *json : {"", "{}", "[1]", R"(["clock", null])", R"(["clock")"}) {
        SCOPED_TRACE(json);
        storeJson(u"zeph.widgets.customOrder"_s, json);
        EXPECT_THAT(relaunched().customOrder(), IsEmpty());
    }
}

TEST_F(PreferencesLoad, anUnknownUnitSystemFallsBackToTheLocale) {
    store(u"zeph.units"_s, u"nautical"_s);
    EXPECT_EQ(prefs().unitSystem(), UnitSystem::metric);
    formatters.american = true;
    EXPECT_EQ(relaunched().unitSystem(), UnitSystem::imperial);
    store(u"zeph.units"_s, u"metric"_s);
    EXPECT_EQ(relaunched().unitSystem(), UnitSystem::metric);
    defaults.remove(u"zeph.units"_s);
    EXPECT_EQ(relaunched().unitSystem(), UnitSystem::imperial);
}

TEST_F(PreferencesLoad, anUnknownLayoutModeIsAutomatic) {
    store(u"zeph.widgets.layoutMode"_s, u"Manual"_s);
    EXPECT_EQ(prefs().layoutMode(), WidgetLayoutMode::automatic);
}

TEST_F(PreferencesLoad, anUnknownBackgroundModeLoadsAsSolid) {
    store(u"zeph.background.mode"_s, u"sparkling"_s);
    EXPECT_EQ(prefs().backgroundMode(), BackgroundMode::solid);
}

TEST_F(PreferencesLoad, desktopNumbersAreReadAroundPiecesThatAreNone) {
    const auto read = [this](const QString &text) {
        store(u"zeph.desktop.selection"_s, text);
        return relaunched().desktopSelection();
    };
    const auto some = [](std::set<int> numbers) {
        return DesktopSelection(SomeDesktops{std::move(numbers)});
    };
    EXPECT_EQ(read(u"1,two,3"_s), some({1, 3}));
    EXPECT_EQ(read(u"3,1,,3,"_s), some({1, 3}));
    EXPECT_EQ(read(u"-2,+4,0x10, 5,6 ,7.0"_s), some({-2, 4}));
    for (const QString &none : {u"all"_s, u""_s, u","_s, u"one,two"_s, u"-"_s, u"99999999999"_s}) {
        EXPECT_EQ(read(none), DesktopSelection(AllDesktops{}));
    }
}

TEST_F(PreferencesLoad, countdownsOfEarlierReleasesLoadUnchanged) {
    storeJson(u"zeph.countdowns"_s, R"([{"title": "Trip", "date": 0},
        {"id": null, "title": "", "date": -1.5, "recurrence": null, "colour": "red"}])");
    ASSERT_THAT(prefs().countdowns(), SizeIs(2));
    const CountdownEvent &trip = prefs().countdowns()[0];
    EXPECT_EQ(trip.title, u"Trip"_s);
    EXPECT_EQ(trip.date, Date{978307200});
    EXPECT_EQ(trip.recurrence, CountdownRecurrence::none);
    EXPECT_FALSE(trip.id.isNull());
    EXPECT_NE(trip.id, prefs().countdowns()[1].id);
    EXPECT_EQ(prefs().countdowns()[1].date, Date{978307198.5});
}

TEST_F(PreferencesLoad, everyFieldOfACountdownIsRead) {
    storeJson(u"zeph.countdowns"_s, R"([
        {"id": "0F9619FF-8B86-D011-B42D-00CF4FC964FF", "title": "Zoë · 🎂", "date": 7e8,
         "recurrence": "yearly"},
        {"id": "00000000-0000-0000-0000-000000000000", "title": "Nil", "date": 1}])");
    ASSERT_THAT(prefs().countdowns(), SizeIs(2));
    EXPECT_EQ(prefs().countdowns()[0],
              (CountdownEvent{QUuid(u"{0f9619ff-8b86-d011-b42d-00cf4fc964ff}"_s), u"Zoë · 🎂"_s,
                              Date{978307200.0 + 7e8}, CountdownRecurrence::yearly}));
    EXPECT_TRUE(prefs().countdowns()[1].id.isNull());
}

TEST_F(PreferencesLoad, oneMalformedCountdownLosesTheWholeListUntilTheNextChange) {
    for (const char *malformed :
         {"1", "null", "[]", R"({"date": 1})", R"({"title": "a"})", R"({"title": 1, "date": 1})",
          R"({"title": "a", "date": true})", R"({"title": "a", "date": "1"})",
          R"({"title": "a", "date": null})", R"({"title": "a", "date": 1, "id": "no"})",
          R"({"title": "a", "date": 1, "id": ""})", R"({"title": "a", "date": 1, "id": 5})",
          R"({"title": "a", "date": 1, "id": "{0F9619FF-8B86-D011-B42D-00CF4FC964FF}"})",
          R"({"title": "a", "date": 1, "recurrence": "daily"})",
          R"({"title": "a", "date": 1, "recurrence": 0})"}) {
        SCOPED_TRACE(malformed);
        const QByteArray json = QByteArray(R"([{"title": "good", "date": 1}, )") + malformed + "]";
        store(u"zeph.countdowns"_s, json);
        EXPECT_THAT(relaunched().countdowns(), IsEmpty());
        EXPECT_EQ(storedJson(u"zeph.countdowns"_s), json);
    }
    prefs().setCountdowns({CountdownEvent{QUuid::createUuid(), u"new"_s, Date{1e9}}});
    EXPECT_THAT(relaunched().countdowns(), SizeIs(1));
}

} // namespace

} // namespace zeph
