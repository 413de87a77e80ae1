// SPDX-License-Identifier: MIT
#include "support/CoordinatorFixture.h"
#include "support/QtPrinters.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace zeph {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const QByteArray quietFocus = R"({"data":[{"storeAssertionRecords":[{"assertionDetails":{}}]}]})";

class SlowSensorsTest : public CoordinatorFixture {
protected:
    SlowSensorsTest() {
        turn(WidgetKind::onThisDay, false);
        turn(WidgetKind::iss, false);
    }

    /// Runs the tasks that wait and hands their results to the main thread.
    void settle() {
        executor.runAll();
        loop.drain();
    }
    void turn(WidgetKind kind, bool isOn) {
        preferences.set(isOn ? WidgetPlacement::always : WidgetPlacement::off, kind);
    }
    void allow(EntityType type) { eventStore.access[type] = EventAccess::fullAccess; }
    void answerReminders(std::vector<Reminder> reminders) {
        ASSERT_FALSE(eventStore.fetches.empty());
        eventStore.fetches.back().completion(std::move(reminders));
    }
    Reminder dueNow() const { return {clock.now(), u"Call"_s}; }
};

TEST_F(SlowSensorsTest, aSlowTickPublishesTheSixSensorsInOrder) {
    turn(WidgetKind::desktop, true);
    turn(WidgetKind::devices, false);
    makeCoordinator().start();
    turn(WidgetKind::reminders, false);
    std::vector<int> seen;
    focusFile.bytes = quietFocus;
    desktopFolder.listing = std::vector<FolderEntry>{{u"a.png"_s, false, 10}};
    volume.value = VolumeCapacity{1000, 400};
    settle();
    ASSERT_EQ(state.desktop->totalItems, 1);
    state.desktop = DesktopSummary();
    const auto watch = state.objectWillChange.subscribe([&] {
        seen.push_back((state.disk->totalBytes == 1000 ? 1 : 0) +
                       (*state.focus != FocusState::unknown ? 2 : 0) +
                       (state.desktop->totalItems > 0 ? 4 : 0));
    });
    loop.advance(45 - 1);
    seen.clear();
    loop.advance(1);
    // Each entry tells what had been assigned before the next assignment: the battery and the
    // disk, then the uptime, the focus, the calendar and the Desktop.
    const std::vector<int> sensors(seen.end() - 6, seen.end());
    EXPECT_THAT(sensors, ElementsAre(0, 0, 1, 1, 3, 3));
    EXPECT_EQ(state.desktop->totalItems, 1);
}

TEST_F(SlowSensorsTest, aSwitchedOffDesktopIsNotReadAndRepublishesTheLastSummary) {
    desktopFolder.listing = std::vector<FolderEntry>{{u"a.png"_s, false, 10}};
    turn(WidgetKind::desktop, true);
    makeCoordinator().start();
    settle();
    ASSERT_EQ(state.desktop->totalItems, 1);
    turn(WidgetKind::desktop, false);
    const auto asked = desktopFolder.asked.size();
    desktopFolder.listing = std::vector<FolderEntry>{};
    loop.advance(90);
    settle();
    EXPECT_EQ(desktopFolder.asked.size(), asked);
    EXPECT_EQ(state.desktop->totalItems, 1);
}

TEST_F(SlowSensorsTest, aChangeOfThePreferencesReadsTheDesktopAtOnce) {
    makeCoordinator().start();
    desktopFolder.listing = std::vector<FolderEntry>{{u"a.png"_s, false, 10}};
    turn(WidgetKind::desktop, true);
    settle();
    EXPECT_EQ(state.desktop->totalItems, 1);
}

TEST_F(SlowSensorsTest, remindersAreReadInASlowTickOnlyWithAccess) {
    turn(WidgetKind::reminders, true);
    makeCoordinator().start();
    loop.advance(45);
    EXPECT_THAT(eventStore.fetches, IsEmpty());
    EXPECT_THAT(eventStore.requests, IsEmpty()) << "a tick never asks the user";
    allow(EntityType::reminder);
    loop.advance(45);
    answerReminders({dueNow()});
    EXPECT_EQ(state.reminders->dueToday, 1);
}

TEST_F(SlowSensorsTest, remindersThatAreOffAreNotReadThoughAllowed) {
    allow(EntityType::reminder);
    turn(WidgetKind::reminders, false);
    makeCoordinator().start();
    loop.advance(90);
    EXPECT_THAT(eventStore.fetches, IsEmpty());
}

TEST_F(SlowSensorsTest, withTheRemindersWidgetOffAPreferencesChangeRaisesNoPrompt) {
    turn(WidgetKind::reminders, false);
    makeCoordinator().start();
    preferences.setUse24HourClock(true);
    EXPECT_THAT(eventStore.requests, IsEmpty());
}

TEST_F(SlowSensorsTest, withTheRemindersWidgetOnEveryPreferencesChangeRequestsAccess) {
    turn(WidgetKind::reminders, true);
    makeCoordinator().start();
    preferences.setUse24HourClock(true);
    preferences.setUse24HourClock(false);
    ASSERT_EQ(eventStore.requests.size(), 2U);
    EXPECT_EQ(eventStore.requests[0].type, EntityType::reminder);
}

TEST_F(SlowSensorsTest, remindersAreReadAsSoonAsAccessIsGranted) {
    turn(WidgetKind::reminders, true);
    makeCoordinator().start();
    preferences.setUse24HourClock(true);
    ASSERT_EQ(eventStore.requests.size(), 1U);
    eventStore.requests[0].completion(true);
    EXPECT_THAT(eventStore.fetches, IsEmpty()) << "granted, yet the state does not say so";
    allow(EntityType::reminder);
    eventStore.requests[0].completion(false);
    EXPECT_THAT(eventStore.fetches, IsEmpty());
    eventStore.requests[0].completion(true);
    answerReminders({dueNow()});
    EXPECT_EQ(state.reminders->dueToday, 1);
}

TEST_F(SlowSensorsTest, answersAfterTheEndOfTheCoordinatorChangeNothing) {
    turn(WidgetKind::reminders, true);
    turn(WidgetKind::devices, true);
    allow(EntityType::reminder);
    accessories.input = {{u"Mouse"_s, 50}};
    makeCoordinator().start();
    coordinator.reset();
    answerReminders({dueNow()});
    executor.runAll();
    loop.advance(1);
    EXPECT_EQ(state.reminders->dueToday, 0);
    EXPECT_THAT(*state.deviceBatteries, IsEmpty());
}

TEST_F(SlowSensorsTest, peripheralsAreReadAwayFromTheMainThreadWhileTheirWidgetIsOn) {
    turn(WidgetKind::devices, true);
    accessories.input = {{u"Mouse"_s, 50}};
    makeCoordinator().start();
    EXPECT_EQ(accessories.readings, 0) << "nothing is read on the main thread";
    ASSERT_EQ(executor.waiting(), 1U);
    executor.runAll();
    EXPECT_THAT(*state.deviceBatteries, IsEmpty()) << "published on the main thread alone";
    loop.advance(1);
    ASSERT_EQ(state.deviceBatteries->size(), 1U);
    EXPECT_EQ(state.deviceBatteries->front().percent, 50);
    turn(WidgetKind::devices, false);
    loop.advance(90);
    EXPECT_EQ(executor.waiting(), 0U);
}

TEST_F(SlowSensorsTest, ofOverlappingReadingsTheLaterAssignmentWins) {
    turn(WidgetKind::devices, true);
    accessories.input = {{u"Mouse"_s, 50}};
    makeCoordinator().start();
    loop.advance(45);
    ASSERT_EQ(executor.waiting(), 2U) << "a hung reading delays only itself";
    accessories.input = {{u"Mouse"_s, 40}};
    executor.runAt(1);
    accessories.input = {{u"Mouse"_s, 60}};
    executor.runAt(0);
    loop.advance(1);
    EXPECT_EQ(state.deviceBatteries->front().percent, 60);
}

TEST_F(SlowSensorsTest, readingsThatHangTakeTwoThreadsAndNoMore) {
    turn(WidgetKind::devices, true);
    makeCoordinator().start();
    loop.advance(45 * 20);
    EXPECT_EQ(executor.waiting(), 2U);
    accessories.input = {{u"Mouse"_s, 50}};
    executor.runAll();
    loop.advance(1);
    EXPECT_EQ(executor.waiting(), 1U) << "the newest of those that waited";
    executor.runAll();
    loop.advance(1);
    ASSERT_EQ(state.deviceBatteries->size(), 1U);
}

TEST_F(SlowSensorsTest, aLateWordOfAServiceIsPublishedWhenItComes) {
    eventStore.silent = true;
    allow(EntityType::event);
    makeCoordinator().start();
    powerSources.sources = {QVariantMap{{u"Power Source State"_s, u"AC Power"_s}}};
    powerSources.changes.send();
    EXPECT_TRUE(state.battery->isPluggedIn);
    focusFile.bytes = quietFocus;
    focusFile.changes.send();
    EXPECT_NE(*state.focus, FocusState::unknown);
    eventStore.silent = false;
    eventStore.stored = {{false, clock.now() + 600, u"Standup"_s}};
    eventStore.changes.send();
    EXPECT_EQ(state.calendar->eventsToday, 1);
}

TEST_F(SlowSensorsTest, aCensusThatTellsNothingNewIsNotPublishedAgain) {
    turn(WidgetKind::desktop, true);
    turn(WidgetKind::devices, false);
    desktopFolder.listing = std::vector<FolderEntry>{{u"a.png"_s, false, 10}};
    makeCoordinator().start();
    settle();
    ASSERT_EQ(state.desktop->totalItems, 1);
    loop.advance(45);
    EXPECT_EQ(changesDuring([&] { settle(); }), 0);
    desktopFolder.listing->push_back({u"b.png"_s, false, 20});
    loop.advance(45);
    EXPECT_EQ(changesDuring([&] { settle(); }), 1);
    EXPECT_EQ(state.desktop->totalItems, 2);
}

TEST_F(SlowSensorsTest, aCensusThatEndsAfterItsWidgetWasSwitchedOffIsNotPublished) {
    turn(WidgetKind::desktop, true);
    turn(WidgetKind::devices, false);
    makeCoordinator().start();
    desktopFolder.listing = std::vector<FolderEntry>{{u"a.png"_s, false, 10}};
    turn(WidgetKind::desktop, false);
    EXPECT_EQ(changesDuring([&] { settle(); }), 0);
}

TEST_F(SlowSensorsTest, aChangeOfThePreferencesReadsNoDesktopWhileItsWidgetIsOff) {
    turn(WidgetKind::desktop, false);
    turn(WidgetKind::reminders, false);
    makeCoordinator().start();
    const auto asked = desktopFolder.asked.size();
    EXPECT_EQ(changesDuring([&] { preferences.setUse24HourClock(true); }), 0);
    EXPECT_EQ(desktopFolder.asked.size(), asked);
}

TEST_F(SlowSensorsTest, noServiceCallsACoordinatorThatHasEnded) {
    allow(EntityType::event);
    makeCoordinator().start();
    coordinator.reset();
    const int readings = powerSources.readings + focusFile.readings;
    powerSources.changes.send();
    focusFile.changes.send();
    EXPECT_EQ(powerSources.readings + focusFile.readings, readings);
    const auto asked = eventStore.windows.size();
    eventStore.changes.send();
    EXPECT_EQ(eventStore.windows.size(), asked);
}

} // namespace
} // namespace zeph
