// SPDX-License-Identifier: MIT
#include "PreferencesFixture.h"
#include "support/UtcCalendar.h"

#include <limits>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace zeph {

namespace {

const auto preferencesChanged = u"zeph.preferences.changed"_s;

using PreferencesStoreTest = PreferencesFixture;

TEST_F(PreferencesStoreTest, aPlacementIsWrittenThroughAndRead) {
    prefs().set(WidgetPlacement::off, WidgetKind::clock);
    prefs().set(WidgetPlacement::always, WidgetKind::desktop);
    EXPECT_EQ(storedJson(u"zeph.widgets.placements"_s), R"({"clock":"off","desktop":"always"})");
    EXPECT_THAT(posted, ElementsAre(preferencesChanged, preferencesChanged));
    EXPECT_EQ(relaunched().placement(WidgetKind::clock), WidgetPlacement::off);
    EXPECT_EQ(prefs().placement(WidgetKind::desktop), WidgetPlacement::always);
}

TEST_F(PreferencesStoreTest, aSizeIsWrittenThroughAndRead) {
    prefs().setSize(WidgetSizeOption::large, WidgetKind::clock);
    prefs().setSize(WidgetSizeOption::small, WidgetKind::machine);
    prefs().setSize(WidgetSizeOption::medium, WidgetKind::sun);
    EXPECT_EQ(storedJson(u"zeph.widgets.sizes"_s),
              R"({"clock":"large","machine":"small","sun":"medium"})");
    EXPECT_THAT(posted, ElementsAre(preferencesChanged, preferencesChanged, preferencesChanged));
    EXPECT_EQ(relaunched().size(WidgetKind::clock), WidgetSizeOption::large);
    EXPECT_EQ(prefs().size(WidgetKind::machine), WidgetSizeOption::small);
    EXPECT_EQ(prefs().size(WidgetKind::sun), WidgetSizeOption::medium);
}

TEST_F(PreferencesStoreTest, choicesOfWidgetsItDoesNotKnowAreKept) {
    storeJson(u"zeph.widgets.placements"_s, R"({"tomorrow": "off"})");
    prefs().set(WidgetPlacement::off, WidgetKind::clock);
    EXPECT_EQ(storedJson(u"zeph.widgets.placements"_s), R"({"clock":"off","tomorrow":"off"})");
}

TEST_F(PreferencesStoreTest, theLayoutModeIsWrittenThrough) {
    prefs().setLayoutMode(WidgetLayoutMode::manual);
    EXPECT_EQ(defaults.get<QString>(u"zeph.widgets.layoutMode"_s), u"manual"_s);
    EXPECT_EQ(relaunched().layoutMode(), WidgetLayoutMode::manual);
    prefs().setLayoutMode(WidgetLayoutMode::automatic);
    EXPECT_EQ(defaults.get<QString>(u"zeph.widgets.layoutMode"_s), u"auto"_s);
    EXPECT_THAT(posted, ElementsAre(preferencesChanged, preferencesChanged));
}

TEST_F(PreferencesStoreTest, theCustomOrderIsWrittenThroughAndItsResetRemovesIt) {
    prefs().setCustomOrder({u"weather"_s, u"clock"_s});
    EXPECT_EQ(storedJson(u"zeph.widgets.customOrder"_s), R"(["weather","clock"])");
    EXPECT_EQ(relaunched().customOrder(), (QStringList{u"weather"_s, u"clock"_s}));
    prefs().resetCustomOrder();
    EXPECT_TRUE(prefs().customOrder().isEmpty());
    EXPECT_FALSE(defaults.value(u"zeph.widgets.customOrder"_s));
    EXPECT_THAT(posted, ElementsAre(preferencesChanged, preferencesChanged));
}

TEST_F(PreferencesStoreTest, theBackgroundIsWrittenThrough) {
    for (const auto &[mode, raw] : {std::pair(BackgroundMode::solid, u"solid"_s),
                                    std::pair(BackgroundMode::automatic, u"auto"_s),
                                    std::pair(BackgroundMode::transparent, u"transparent"_s)}) {
        prefs().setBackgroundMode(mode);
        EXPECT_EQ(defaults.get<QString>(u"zeph.background.mode"_s), raw);
        EXPECT_EQ(relaunched().backgroundMode(), mode);
    }
    prefs().setTransparentDim(0.5);
    EXPECT_EQ(defaults.get<double>(u"zeph.background.transparentDim"_s), 0.5);
    EXPECT_EQ(relaunched().transparentDim(), 0.5);
    EXPECT_THAT(posted, testing::AllOf(testing::SizeIs(4), testing::Each(preferencesChanged)));
}

TEST_F(PreferencesStoreTest, assigningNoColourRemovesTheKey) {
    prefs().setBackgroundHex(u"#ABCDEF"_s);
    EXPECT_EQ(relaunched().backgroundHex(), u"#ABCDEF"_s);
    prefs().setBackgroundHex(std::nullopt);
    EXPECT_EQ(prefs().backgroundHex(), std::nullopt);
    EXPECT_FALSE(defaults.value(u"zeph.background.hex"_s));
    EXPECT_EQ(relaunched().backgroundHex(), u"#0D0F1F"_s);
    EXPECT_THAT(posted, ElementsAre(preferencesChanged, preferencesChanged));
}

TEST_F(PreferencesStoreTest, formatsAreWrittenThrough) {
    prefs().setUseSystemNumberFormat(true);
    prefs().setUse24HourClock(true);
    prefs().setUnitSystem(UnitSystem::imperial);
    EXPECT_EQ(defaults.get<bool>(u"zeph.numbers.system"_s), true);
    EXPECT_EQ(defaults.get<bool>(u"zeph.clock.24h"_s), true);
    EXPECT_EQ(defaults.get<QString>(u"zeph.units"_s), u"imperial"_s);
    EXPECT_TRUE(relaunched().useSystemNumberFormat());
    EXPECT_TRUE(prefs().use24HourClock());
    EXPECT_EQ(prefs().unitSystem(), UnitSystem::imperial);
    prefs().setUnitSystem(UnitSystem::metric);
    EXPECT_EQ(defaults.get<QString>(u"zeph.units"_s), u"metric"_s);
    EXPECT_THAT(posted, testing::AllOf(testing::SizeIs(4), testing::Each(preferencesChanged)));
}

TEST_F(PreferencesStoreTest, theDisplaySelectionPostsItsOwnNotification) {
    prefs().setDisplaySelection(OneScreen{u"SCREEN-1"_s});
    EXPECT_EQ(defaults.get<QString>(u"zeph.display.selection"_s), u"SCREEN-1"_s);
    EXPECT_EQ(relaunched().displaySelection(), DisplaySelection(OneScreen{u"SCREEN-1"_s}));
    prefs().setDisplaySelection(AllDisplays{});
    EXPECT_EQ(defaults.get<QString>(u"zeph.display.selection"_s), u"all"_s);
    EXPECT_THAT(posted, ElementsAre(u"zeph.display.changed"_s, u"zeph.display.changed"_s));
}

TEST_F(PreferencesStoreTest, theDesktopSelectionPostsItsOwnNotification) {
    prefs().setDesktopSelection(SomeDesktops{{10, 2, 1}});
    EXPECT_EQ(defaults.get<QString>(u"zeph.desktop.selection"_s), u"1,2,10"_s);
    EXPECT_EQ(relaunched().desktopSelection(), DesktopSelection(SomeDesktops{{1, 2, 10}}));
    prefs().setDesktopSelection(AllDesktops{});
    EXPECT_EQ(defaults.get<QString>(u"zeph.desktop.selection"_s), u"all"_s);
    EXPECT_THAT(posted, ElementsAre(u"zeph.desktop.changed"_s, u"zeph.desktop.changed"_s));
}

TEST_F(PreferencesStoreTest, anEmptyDesktopSelectionReadsBackAsAll) {
    prefs().setDesktopSelection(SomeDesktops{});
    EXPECT_EQ(prefs().desktopSelection(), DesktopSelection(SomeDesktops{}));
    EXPECT_EQ(relaunched().desktopSelection(), DesktopSelection(AllDesktops{}));
}

TEST_F(PreferencesStoreTest, countdownsAreWrittenInTheirStoredForm) {
    const std::vector<CountdownEvent> events = {
        {QUuid(u"{0f9619ff-8b86-d011-b42d-00cf4fc964ff}"_s), u"Zoë"_s, Date{978307260.5},
         CountdownRecurrence::weekly},
        {QUuid(u"{1f9619ff-8b86-d011-b42d-00cf4fc964ff}"_s), u"Trip"_s, Date{1.7e9},
         CountdownRecurrence::none},
        {QUuid(u"{2f9619ff-8b86-d011-b42d-00cf4fc964ff}"_s), u"Rent"_s, Date{0},
         CountdownRecurrence::monthly},
    };
    prefs().setCountdowns(events);
    const auto json = QJsonDocument::fromJson(storedJson(u"zeph.countdowns"_s));
    const auto expected = QJsonDocument::fromJson(R"([
        {"id": "0F9619FF-8B86-D011-B42D-00CF4FC964FF", "title": "Zoë", "date": 60.5,
         "recurrence": "weekly"},
        {"id": "1F9619FF-8B86-D011-B42D-00CF4FC964FF", "title": "Trip", "date": 721692800,
         "recurrence": "none"},
        {"id": "2F9619FF-8B86-D011-B42D-00CF4FC964FF", "title": "Rent", "date": -978307200,
         "recurrence": "monthly"}])");
    EXPECT_EQ(json, expected) << json.toJson().toStdString();
    EXPECT_EQ(relaunched().countdowns(), events);
    EXPECT_THAT(posted, ElementsAre(preferencesChanged));
}

TEST_F(PreferencesStoreTest, countdownsThatAreOthersNowHaveOtherDates) {
    const UtcCalendar gregorian;
    const Date now{1.7e9};
    prefs().setCountdowns({CountdownEvent{QUuid(), u"first"_s, now + 10}});
    EXPECT_EQ(prefs().countdownDates(now, gregorian).front().date, now + 10);
    prefs().setCountdowns({CountdownEvent{QUuid(), u"second"_s, now + 20}});
    EXPECT_EQ(prefs().countdownDates(now, gregorian).front().date, now + 20);
}

TEST_F(PreferencesStoreTest, countdownsWithoutAJsonFormStandInMemoryOnly) {
    prefs().setCountdowns({CountdownEvent{QUuid::createUuid(), u"kept"_s, Date{1e9}}});
    const QByteArray before = storedJson(u"zeph.countdowns"_s);
    CountdownEvent never;
    never.date = Date{std::numeric_limits<double>::infinity()};
    prefs().setCountdowns({never});
    EXPECT_EQ(storedJson(u"zeph.countdowns"_s), before);
    EXPECT_THAT(prefs().countdowns(), ElementsAre(never));
    EXPECT_THAT(posted, ElementsAre(preferencesChanged, preferencesChanged));
}

TEST_F(PreferencesStoreTest, everyAssignmentIsWrittenAndPostedEqualValuesIncluded) {
    prefs().setUse24HourClock(false);
    prefs().setUse24HourClock(false);
    EXPECT_EQ(defaults.writes, 2);
    EXPECT_THAT(posted, ElementsAre(preferencesChanged, preferencesChanged));
}

TEST_F(PreferencesStoreTest, viewsHearBeforeTheChangeAndTheHostAfterIt) {
    QStringList events;
    const auto view = prefs().objectWillChange.subscribe(
        [&] { events.append(prefs().use24HourClock() ? u"view: new"_s : u"view: old"_s); });
    const auto host = center.observe(notifications::zephPreferencesChanged, [&] {
        events.append(defaults.boolean(u"zeph.clock.24h"_s) ? u"host: stored"_s : u"host: old"_s);
    });
    prefs().setUse24HourClock(true);
    EXPECT_THAT(events, ElementsAre(u"view: old"_s, u"host: stored"_s));
}

TEST_F(PreferencesStoreTest, everySetterTellsTheViews) {
    int changes = 0;
    PreferencesStore &store = prefs();
    const auto view = store.objectWillChange.subscribe([&changes] { ++changes; });
    store.set(WidgetPlacement::off, WidgetKind::clock);
    store.setSize(WidgetSizeOption::large, WidgetKind::clock);
    store.setLayoutMode(WidgetLayoutMode::manual);
    store.setCustomOrder({});
    store.resetCustomOrder();
    store.setBackgroundMode(BackgroundMode::solid);
    store.setBackgroundHex({});
    store.setTransparentDim(0);
    store.setUseSystemNumberFormat(true);
    store.setUnitSystem(UnitSystem::metric);
    store.setUse24HourClock(true);
    store.setDisplaySelection(AllDisplays{});
    store.setDesktopSelection(AllDesktops{});
    store.setCountdowns({});
    EXPECT_EQ(changes, 14);
}

TEST_F(PreferencesStoreTest, theStoredPetIsNeverWritten) {
    store(u"zeph.pet.enabled"_s, false);
    store(u"zeph.pet.kind"_s, u"dog"_s);
    prefs().setUse24HourClock(true);
    EXPECT_EQ(defaults.get<bool>(u"zeph.pet.enabled"_s), false);
    EXPECT_EQ(defaults.get<QString>(u"zeph.pet.kind"_s), u"dog"_s);
}

} // namespace

} // namespace zeph
