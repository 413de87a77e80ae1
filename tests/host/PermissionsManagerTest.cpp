// SPDX-License-Identifier: MIT
#include "host/PermissionsManager.h"

#include "host/CalendarPermission.h"
#include "settings/Consents.h"
#include "support/FakeEventStore.h"
#include "support/FakeInputEvents.h"
#include "support/FakeLocation.h"
#include "support/FakeSystemSettings.h"
#include "support/FakeUserDefaults.h"
#include "support/ManualRunLoop.h"

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// A location client that grants as soon as it is asked.
class GrantingLocationClient : public FakeLocationClient {
public:
    void requestWhenInUseAuthorization() override {
        FakeLocationClient::requestWhenInUseAuthorization();
        status = LocationAuthorization::authorized;
    }
};

class PermissionsManagerTest : public testing::Test {
protected:
    PermissionsManagerTest() {
        input.trusted = false;
        manager = make(&location);
    }

    std::shared_ptr<PermissionsManager> make(LocationClient *client) {
        return PermissionsManager::make({input, client,
                                         [this] {
                                             auto fresh = std::make_unique<FakeLocationClient>();
                                             fresh->status = systemLocation;
                                             return fresh;
                                         },
                                         permission, settings, loop, [this] { ++activations; },
                                         consents, [this] { ++showings; }});
    }

    /// How often the manager assigns a property during `action`.
    int changesDuring(const std::function<void()> &action) const {
        int changes = 0;
        const Subscription counting = manager->objectWillChange.subscribe([&] { ++changes; });
        action();
        return changes;
    }

    ManualClock clock;
    ManualRunLoop loop{clock};
    FakeInputEvents input;
    FakeLocationClient location;
    LocationAuthorization systemLocation = LocationAuthorization::notDetermined;
    FakeEventStore store;
    CalendarPermission permission{store};
    FakeSystemSettings settings;
    FakeUserDefaults defaults;
    Consents consents{defaults};
    int activations = 0;
    int showings = 0;
    std::shared_ptr<PermissionsManager> manager;
};

} // namespace

TEST_F(PermissionsManagerTest, everythingIsRefusedOnAFreshMachine) {
    EXPECT_FALSE(*manager->accessibilityGranted);
    EXPECT_FALSE(*manager->locationGranted);
    EXPECT_FALSE(*manager->calendarGranted);
    EXPECT_FALSE(*manager->remindersGranted);
}

TEST_F(PermissionsManagerTest, theConstructorReadsTheStates) {
    input.trusted = true;
    systemLocation = LocationAuthorization::authorized;
    store.access[EntityType::event] = EventAccess::fullAccess;
    store.access[EntityType::reminder] = EventAccess::fullAccess;
    const auto fresh = make(&location);
    EXPECT_TRUE(*fresh->accessibilityGranted);
    EXPECT_TRUE(*fresh->locationGranted);
    EXPECT_TRUE(*fresh->calendarGranted);
    EXPECT_TRUE(*fresh->remindersGranted);
}

TEST_F(PermissionsManagerTest, onlyThreeCountsAsGranted) {
    for (const int state : {0, 1, 2}) {
        systemLocation = static_cast<LocationAuthorization>(state);
        store.access[EntityType::event] = static_cast<EventAccess>(state);
        store.access[EntityType::reminder] = static_cast<EventAccess>(state);
        manager->refresh();
        EXPECT_FALSE(*manager->locationGranted);
        EXPECT_FALSE(*manager->calendarGranted);
        EXPECT_FALSE(*manager->remindersGranted);
    }
}

TEST_F(PermissionsManagerTest, aRefreshAssignsAllFourInOrderAlsoWithoutAChange) {
    EXPECT_EQ(changesDuring([this] { manager->refresh(); }), 4);

    input.trusted = true;
    systemLocation = LocationAuthorization::authorized;
    store.access[EntityType::event] = EventAccess::fullAccess;
    store.access[EntityType::reminder] = EventAccess::fullAccess;
    std::vector<int> grantedBefore; // each change is told before its assignment
    const Subscription watching = manager->objectWillChange.subscribe([&] {
        grantedBefore.push_back(
            int(*manager->accessibilityGranted) * 1 + int(*manager->locationGranted) * 2 +
            int(*manager->calendarGranted) * 4 + int(*manager->remindersGranted) * 8);
    });
    manager->refresh();
    EXPECT_EQ(grantedBefore, (std::vector<int>{0, 1, 3, 7}));
}

TEST_F(PermissionsManagerTest, theLocationStateIsThatOfAFreshClient) {
    location.status = LocationAuthorization::authorized; // what the client in use believes
    manager->refresh();
    EXPECT_FALSE(*manager->locationGranted);
    location.status = LocationAuthorization::denied;
    systemLocation = LocationAuthorization::authorized;
    manager->refresh();
    EXPECT_TRUE(*manager->locationGranted);
}

TEST_F(PermissionsManagerTest, locationDeniedOpensTheSettingsAtOnceAndRefreshesAfterwards) {
    for (const auto status : {LocationAuthorization::restricted, LocationAuthorization::denied}) {
        settings.opened.clear();
        location.status = status;
        manager->requestLocation();
        EXPECT_EQ(settings.opened, QStringList{PermissionsManager::locationLink()});
        EXPECT_EQ(changesDuring([this] { loop.advance(0.59); }), 0);
        EXPECT_EQ(changesDuring([this] { loop.advance(0.02); }), 4);
        EXPECT_EQ(changesDuring([this] { loop.advance(10); }), 0);
    }
    EXPECT_EQ(location.authorizationRequests, 0);
    EXPECT_EQ(activations, 0);
}

TEST_F(PermissionsManagerTest, locationUndecidedAsksInFrontAndOpensTheSettingsWhenNoPromptShows) {
    manager->requestLocation();
    EXPECT_EQ(activations, 1);
    EXPECT_EQ(location.authorizationRequests, 1);
    EXPECT_EQ(location.requests, 0);
    EXPECT_EQ(changesDuring([this] { loop.advance(0.61); }), 4);
    EXPECT_TRUE(settings.opened.isEmpty());
    EXPECT_EQ(changesDuring([this] { loop.advance(0.88); }), 0);
    EXPECT_EQ(changesDuring([this] { loop.advance(0.02); }), 4);
    EXPECT_EQ(settings.opened, QStringList{PermissionsManager::locationLink()});
}

TEST_F(PermissionsManagerTest, locationGrantedAtOnceIsAskedForAFixAndOpensNothing) {
    GrantingLocationClient granting;
    manager = make(&granting);
    manager->requestLocation();
    EXPECT_EQ(granting.requests, 1);
    loop.advance(5);
    EXPECT_TRUE(settings.opened.isEmpty());
}

TEST_F(PermissionsManagerTest, locationAlreadyGrantedIsAskedForAFixWithoutComingToTheFront) {
    location.status = LocationAuthorization::authorized;
    manager->requestLocation();
    EXPECT_EQ(location.authorizationRequests, 1);
    EXPECT_EQ(location.requests, 1);
    EXPECT_EQ(activations, 0);
    EXPECT_EQ(changesDuring([this] { loop.advance(10); }), 4);
    EXPECT_TRUE(settings.opened.isEmpty());
}

TEST_F(PermissionsManagerTest, aMachineWithoutALocationSourceCountsAsRefusing) {
    const auto without = PermissionsManager::make(
        {input, nullptr, [] { return nullptr; }, permission, settings, loop, [] {}, consents});
    EXPECT_FALSE(*without->locationGranted);
    without->requestLocation();
    EXPECT_EQ(settings.opened, QStringList{PermissionsManager::locationLink()});
    loop.advance(2);
    EXPECT_EQ(settings.opened.size(), 1);
}

TEST_F(PermissionsManagerTest, calendarAlreadyGrantedOnlyRefreshes) {
    store.access[EntityType::event] = EventAccess::fullAccess;
    EXPECT_EQ(changesDuring([this] { manager->requestCalendar(); }), 4);
    EXPECT_TRUE(*manager->calendarGranted);
    EXPECT_EQ(changesDuring([this] { loop.advance(10); }), 0);
    EXPECT_TRUE(store.requests.empty());
    EXPECT_TRUE(settings.opened.isEmpty());
    EXPECT_EQ(activations, 0);
}

TEST_F(PermissionsManagerTest, calendarDeniedOrRestrictedOpensItsSettingsAndStops) {
    for (const EventAccess access : {EventAccess::restricted, EventAccess::denied}) {
        settings.opened.clear();
        store.access[EntityType::event] = access;
        EXPECT_EQ(changesDuring([this] {
                      manager->requestCalendar();
                      loop.advance(10);
                  }),
                  0);
        EXPECT_EQ(settings.opened, QStringList{PermissionsManager::calendarLink()});
    }
    EXPECT_TRUE(store.requests.empty());
}

TEST_F(PermissionsManagerTest, calendarUndecidedAsksAndRefreshesOnTheAnswer) {
    manager->requestCalendar();
    EXPECT_EQ(activations, 1);
    ASSERT_EQ(store.requests.size(), 1U);
    EXPECT_EQ(store.requests.front().type, EntityType::event);
    store.access[EntityType::event] = EventAccess::fullAccess;
    EXPECT_EQ(changesDuring([this] { store.requests.front().completion(true); }), 4);
    EXPECT_TRUE(*manager->calendarGranted);
    EXPECT_EQ(changesDuring([this] { loop.advance(1.6); }), 4);
    EXPECT_TRUE(settings.opened.isEmpty());
}

TEST_F(PermissionsManagerTest, remindersWithoutAPromptOpenTheirSettingsAfterAMomentAndAHalf) {
    manager->requestReminders();
    ASSERT_EQ(store.requests.size(), 1U);
    EXPECT_EQ(store.requests.front().type, EntityType::reminder);
    loop.advance(1.49);
    EXPECT_TRUE(settings.opened.isEmpty());
    loop.advance(0.02);
    EXPECT_EQ(settings.opened, QStringList{PermissionsManager::remindersLink()});
    // The prompt may still be on its way; its answer counts all the same.
    store.access[EntityType::reminder] = EventAccess::fullAccess;
    store.requests.front().completion(true);
    EXPECT_TRUE(*manager->remindersGranted);
}

TEST_F(PermissionsManagerTest, remindersThatWereRefusedInThePromptOpenNothing) {
    manager->requestReminders();
    store.access[EntityType::reminder] = EventAccess::denied;
    store.requests.front().completion(false);
    loop.advance(5);
    EXPECT_TRUE(settings.opened.isEmpty());
    EXPECT_FALSE(*manager->remindersGranted);
}

TEST_F(PermissionsManagerTest, theDelayedStepsKeepTheManagerAndTheAnswerDoesNot) {
    manager->requestCalendar();
    const std::weak_ptr<PermissionsManager> watched = manager;
    manager.reset();
    EXPECT_FALSE(watched.expired());
    loop.advance(2);
    EXPECT_EQ(settings.opened, QStringList{PermissionsManager::calendarLink()});
    loop.advance(1); // lets go of what ran
    EXPECT_TRUE(watched.expired());
    const int looks = store.statusCalls;
    store.requests.front().completion(true);
    EXPECT_EQ(store.statusCalls, looks);
}

TEST_F(PermissionsManagerTest, aRefreshOnlyLooksAtTheStates) {
    manager->refresh();
    EXPECT_EQ(store.readingCalls(), 0U);
    EXPECT_EQ(input.tapsMade, 0);
    EXPECT_EQ(location.requests + location.authorizationRequests, 0);
}

TEST_F(PermissionsManagerTest, theLinksAreValid) {
    EXPECT_EQ(PermissionsManager::accessibilityLink(), u"zeph-settings:accessibility"_s);
    EXPECT_EQ(PermissionsManager::locationLink(), u"zeph-settings:location"_s);
    EXPECT_EQ(PermissionsManager::calendarLink(), u"zeph-settings:calendar"_s);
    EXPECT_EQ(PermissionsManager::remindersLink(), u"zeph-settings:reminders"_s);
    EXPECT_EQ(PermissionsManager::privacyLink(), u"zeph-settings:privacy"_s);
}

TEST_F(PermissionsManagerTest, whatTheDesktopHasNoPageForOpensOurOwn) {
    settings.hasPages = false;
    location.status = LocationAuthorization::denied;
    manager->requestLocation();
    EXPECT_TRUE(settings.opened.isEmpty());
    EXPECT_EQ(showings, 1);
    settings.hasPages = true;
    manager->requestLocation();
    EXPECT_EQ(settings.opened, QStringList{PermissionsManager::locationLink()});
    EXPECT_EQ(showings, 1);
}

TEST_F(PermissionsManagerTest, aDeniedCalendarWithoutAPageOpensOurOwn) {
    settings.hasPages = false;
    store.access[EntityType::event] = EventAccess::denied;
    manager->requestCalendar();
    EXPECT_TRUE(settings.opened.isEmpty());
    EXPECT_EQ(showings, 1);
}

TEST_F(PermissionsManagerTest, anAnswerThatIsStillAwaitedDoesNotOpenOurOwn) {
    settings.hasPages = false;
    manager->requestLocation();
    manager->requestReminders();
    loop.advance(5);
    EXPECT_TRUE(settings.opened.isEmpty());
    EXPECT_EQ(showings, 0) << "the same could only be asked for there once more";
}

TEST_F(PermissionsManagerTest, whatTheDesktopHasNoPageForOpensNothingWithoutOneOfOurs) {
    settings.hasPages = false;
    const auto without = PermissionsManager::make(
        {input, nullptr, [] { return nullptr; }, permission, settings, loop, [] {}, consents});
    without->requestLocation();
    EXPECT_TRUE(settings.opened.isEmpty());
}

TEST_F(PermissionsManagerTest, accessibilityIsGrantedByTheWishAlone) {
    for (const ConsentState before : {ConsentState::notDetermined, ConsentState::denied}) {
        consents.input.set(before);
        input.trusted = true; // as the input does once the consent is there
        EXPECT_EQ(changesDuring([this] { manager->requestAccessibility(); }), 1);
        EXPECT_EQ(consents.input.state(), ConsentState::granted);
        EXPECT_TRUE(*manager->accessibilityGranted);
    }
    EXPECT_EQ(activations, 0);
    EXPECT_TRUE(settings.opened.isEmpty());
}

TEST_F(PermissionsManagerTest, accessibilityIsOnlyWhatTheInputMakesOfTheConsent) {
    manager->requestAccessibility(); // a session whose input can't be followed
    EXPECT_FALSE(*manager->accessibilityGranted);
}

TEST_F(PermissionsManagerTest, aWithdrawnPermissionIsOpenAgainAndReadAtOnce) {
    const auto withdraws = [this](Consent &consent, auto withdraw) {
        consent.set(ConsentState::granted);
        const int changes = changesDuring([&] { (manager.get()->*withdraw)(); });
        return changes == 4 && consent.state() == ConsentState::notDetermined;
    };
    EXPECT_TRUE(withdraws(consents.input, &PermissionsManager::withdrawAccessibility));
    EXPECT_TRUE(withdraws(consents.location, &PermissionsManager::withdrawLocation));
    EXPECT_TRUE(withdraws(consents.calendar, &PermissionsManager::withdrawCalendar));
    EXPECT_TRUE(withdraws(consents.reminders, &PermissionsManager::withdrawReminders));
}

TEST_F(PermissionsManagerTest, withdrawingOneLeavesTheOthers) {
    for (Consent *consent : std::initializer_list<Consent *>{
             &consents.input, &consents.location, &consents.calendar, &consents.reminders}) {
        consent->set(ConsentState::granted);
    }
    manager->withdrawCalendar();
    EXPECT_TRUE(consents.input.isGranted());
    EXPECT_TRUE(consents.location.isGranted());
    EXPECT_FALSE(consents.calendar.isGranted());
    EXPECT_TRUE(consents.reminders.isGranted());
}

TEST_F(PermissionsManagerTest, theHindranceIsThatOfTheClient) {
    location.hindered = LocationHindrance::noAgent;
    EXPECT_EQ(manager->locationHindrance(), LocationHindrance::noAgent);
    EXPECT_EQ(make(nullptr)->locationHindrance(), LocationHindrance::noService);
}

} // namespace zeph
