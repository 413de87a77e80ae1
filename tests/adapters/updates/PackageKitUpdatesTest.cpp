// SPDX-License-Identifier: MIT
#include "adapters/updates/PackageKitUpdates.h"

#include "adapters/updates/FakePackageKit.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

using Phase = UpdateStatus::Phase;

const QString installedId = u"tavi;0.1.0-1;amd64;installed:stable"_s;
const QString newerId = u"tavi;0.2.0-1;amd64;stable"_s;

class PackageKitUpdatesTest : public testing::Test {
protected:
    PackageKitUpdatesTest() {
        service.answers[u"SearchFiles"_s].packages = {{1, installedId}};
        service.answers[u"GetUpdates"_s].packages = {{8, u"other;3;amd64;stable"_s}, {5, newerId}};
    }

    void listen(const QString &executable = u"/usr/bin/tavi"_s, bool isSandboxed = false) {
        updates =
            std::make_unique<PackageKitUpdates>(client.bus(), executable, u"0.1.0"_s, isSandboxed);
        subscription = updates->subscribe([this] {
            if (told.isEmpty() || told.last() != static_cast<int>(updates->status().phase)) {
                told << static_cast<int>(updates->status().phase);
            }
            progress << updates->status().progress;
        });
    }
    testing::AssertionResult becomes(Phase phase) {
        if (eventually([&] { return updates->status().phase == phase; })) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << static_cast<int>(updates->status().phase) << " "
                                           << updates->status().problem.toStdString();
    }
    testing::AssertionResult check(Phase phase) {
        updates->checkForUpdates();
        return becomes(phase);
    }
    /// A search that found the newer version.
    void find() {
        service.appear();
        listen();
        ASSERT_TRUE(check(Phase::available));
        told.clear();
        progress.clear();
    }
    testing::AssertionResult install(Phase phase) {
        updates->install();
        EXPECT_EQ(updates->status().phase, Phase::installing);
        return becomes(phase);
    }
    bool isAsked(const QString &method, int times = 1) {
        return eventually([&] { return service.calls.count(method) >= times; });
    }
    static QList<int> phases(std::initializer_list<Phase> list) {
        QList<int> numbers;
        for (const Phase phase : list) {
            numbers << static_cast<int>(phase);
        }
        return numbers;
    }

    PrivateBus bus;
    FakePackageKit service{bus.address()};
    BusConnection client{bus.address()};
    std::unique_ptr<PackageKitUpdates> updates;
    Subscription subscription;
    QList<int> told;     // phases, each time that another one came
    QList<int> progress; // of every change
};

} // namespace

TEST_F(PackageKitUpdatesTest, asksNothingBeforeTheUserDoes) {
    service.appear();
    listen();
    EXPECT_EQ(updates->status(), UpdateStatus());
    updates->install();
    updates->cancel();
    EXPECT_FALSE(eventually([&] { return service.transactions > 0; }, 100));
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(PackageKitUpdatesTest, findsTheNewerVersionOfThePackageThatOwnsTheProgram) {
    service.appear();
    listen(u"/usr/lib/tavi/tavi"_s);
    ASSERT_TRUE(check(Phase::available));
    EXPECT_EQ(updates->status(), (UpdateStatus{.phase = Phase::available, .version = u"0.2.0"_s}));
    EXPECT_EQ(told, phases({Phase::checking, Phase::available}));
    service.calls.removeAll(u"SetHints"_s);
    EXPECT_EQ(service.calls, (QStringList{u"SearchFiles"_s, u"RefreshCache"_s, u"GetUpdates"_s}));
    EXPECT_EQ(service.arguments[u"SearchFiles"_s],
              (QVariantList{quint64(4), QStringList{u"/usr/lib/tavi/tavi"_s}}));
    EXPECT_EQ(service.arguments[u"GetUpdates"_s], QVariantList{quint64(2)});
    EXPECT_TRUE(
        service.arguments[u"SetHints"_s].at(0).toStringList().contains(u"interactive=true"_s));
}

TEST_F(PackageKitUpdatesTest, isUpToDateWithoutAnUpdateOfItsOwnPackage) {
    service.answers[u"GetUpdates"_s].packages = {{5, u"other;3;amd64;stable"_s},
                                                 {5, u"tavi;0.2.0-1;i386;stable"_s},
                                                 {5, u"tavi;0.1.0-1;amd64;stable"_s},
                                                 {5, u"nonsense"_s}};
    service.appear();
    listen();
    EXPECT_TRUE(check(Phase::upToDate));
}

TEST_F(PackageKitUpdatesTest, tellsThatANewerVersionThanTheRunningOneIsInstalled) {
    service.answers[u"SearchFiles"_s].packages = {{1, u"tavi;0.2.0-1;amd64;installed:stable"_s}};
    service.answers[u"GetUpdates"_s].packages = {};
    service.appear();
    listen();
    EXPECT_TRUE(check(Phase::installed));
    EXPECT_EQ(updates->status().version, u"0.2.0");
}

TEST_F(PackageKitUpdatesTest, looksForThePackageOfItsNameWhenNobodyOwnsTheProgram) {
    service.answers[u"SearchFiles"_s].packages = {};
    service.answers[u"Resolve"_s].packages = {{1, installedId}};
    service.appear();
    listen();
    ASSERT_TRUE(check(Phase::available));
    EXPECT_EQ(service.arguments[u"Resolve"_s], (QVariantList{quint64(4), QStringList{u"tavi"_s}}));
}

TEST_F(PackageKitUpdatesTest, doesNotTakeANamesakeForWhatRunsFromTheNextStartOn) {
    service.answers[u"SearchFiles"_s].packages = {};
    service.answers[u"Resolve"_s].packages = {{1, u"tavi;0.2.0-1;amd64;installed:stable"_s}};
    service.answers[u"GetUpdates"_s].packages = {};
    service.appear();
    listen();
    EXPECT_TRUE(check(Phase::upToDate));
}

TEST_F(PackageKitUpdatesTest, looksForItsNameWhereFilesCantBeLookedUp) {
    service.answers[u"SearchFiles"_s] = {.exit = 2, .error = 3, .details = u"no"_s};
    service.answers[u"Resolve"_s].packages = {{1, installedId}};
    service.appear();
    listen();
    EXPECT_TRUE(check(Phase::available));
}

TEST_F(PackageKitUpdatesTest, isNotPackagedWhenNoPackageHasIt) {
    service.answers[u"SearchFiles"_s].packages = {};
    service.appear();
    listen();
    EXPECT_TRUE(check(Phase::notPackaged));
    EXPECT_FALSE(service.calls.contains(u"RefreshCache"_s));
}

TEST_F(PackageKitUpdatesTest, ofABuildAsksTheBusNothing) {
    service.appear();
    for (const QString &path :
         {u"/home/ada/tavi/build/src/tavi"_s, u"/usr/local/bin/tavi"_s, u"/app/bin/tavi"_s}) {
        listen(path);
        updates->checkForUpdates();
        EXPECT_EQ(updates->status().phase, Phase::notPackaged);
    }
    EXPECT_FALSE(eventually([&] { return service.transactions > 0; }, 100));
}

TEST_F(PackageKitUpdatesTest, inASandboxAsksTheBusNothing) {
    service.appear();
    listen(u"/usr/bin/tavi"_s, true);
    updates->checkForUpdates();
    EXPECT_EQ(updates->status().phase, Phase::sandboxed);
    EXPECT_FALSE(eventually([&] { return service.transactions > 0; }, 100));
}

TEST_F(PackageKitUpdatesTest, hasNobodyToAskWithoutTheService) {
    listen();
    EXPECT_TRUE(check(Phase::noService));
    service.appear();
    EXPECT_TRUE(check(Phase::available)) << "it may be installed meanwhile";
}

TEST_F(PackageKitUpdatesTest, hasNobodyToAskWithoutABus) {
    bus.stop();
    BusConnection nowhere(bus.address());
    updates =
        std::make_unique<PackageKitUpdates>(nowhere.bus(), u"/usr/bin/tavi"_s, u"0.1.0"_s, false);
    EXPECT_TRUE(check(Phase::noService));
}

TEST_F(PackageKitUpdatesTest, tellsHowFarTheSearchIs) {
    service.answers[u"RefreshCache"_s].percentages = {101, 0, 50, 100};
    service.answers[u"GetUpdates"_s].percentages = {50};
    service.appear();
    listen();
    ASSERT_TRUE(check(Phase::available));
    EXPECT_EQ(progress, (QList<int>{-1, 0, 45, 90, 95, -1}));
}

TEST_F(PackageKitUpdatesTest, failsWhereTheListsCantBeRefreshed) {
    service.answers[u"RefreshCache"_s] = {.exit = 2, .error = 2, .details = u"offline"_s};
    service.appear();
    listen();
    ASSERT_TRUE(check(Phase::failed));
    EXPECT_EQ(updates->status().problem, u"There is no network to get packages by."_s);
    EXPECT_FALSE(service.calls.contains(u"GetUpdates"_s)) << "old lists tell nothing";
    service.answers[u"RefreshCache"_s] = {};
    EXPECT_TRUE(check(Phase::available)) << "it may be tried again";
}

TEST_F(PackageKitUpdatesTest, failsWhereTheSearchIsNotAllowed) {
    service.answers[u"RefreshCache"_s].callError =
        u"org.freedesktop.PackageKit.Transaction.RefusedByPolicy"_s;
    service.appear();
    listen();
    ASSERT_TRUE(check(Phase::failed));
    EXPECT_EQ(updates->status().problem, u"Your system did not allow a look for newer versions."_s);
}

TEST_F(PackageKitUpdatesTest, failsWhenTheServiceEndsInTheMiddle) {
    service.mute = {u"RefreshCache"_s};
    service.appear();
    listen();
    updates->checkForUpdates();
    ASSERT_TRUE(isAsked(u"RefreshCache"_s));
    service.vanish();
    ASSERT_TRUE(becomes(Phase::failed));
    EXPECT_EQ(updates->status().problem, u"Your system's package service went away."_s);
}

TEST_F(PackageKitUpdatesTest, saysThatAVersionIsHeldBack) {
    service.answers[u"GetUpdates"_s].packages = {{9, newerId}};
    service.appear();
    listen();
    ASSERT_TRUE(check(Phase::failed));
    EXPECT_EQ(updates->status().problem,
              u"Version 0.2.0 is there, but your system holds it back."_s);
    updates->install();
    EXPECT_EQ(updates->status().phase, Phase::failed);
}

TEST_F(PackageKitUpdatesTest, isAskedOnceAtATime) {
    service.mute = {u"RefreshCache"_s};
    service.appear();
    listen();
    updates->checkForUpdates();
    ASSERT_TRUE(isAsked(u"RefreshCache"_s));
    const int before = service.transactions;
    updates->checkForUpdates();
    updates->install();
    service.end(1);
    ASSERT_TRUE(becomes(Phase::available));
    EXPECT_EQ(service.transactions, before + 1) << "that for the updates alone";
}

TEST_F(PackageKitUpdatesTest, givesUpASearchAtOnce) {
    service.mute = {u"RefreshCache"_s};
    service.appear();
    listen();
    updates->checkForUpdates();
    ASSERT_TRUE(isAsked(u"RefreshCache"_s));
    updates->cancel();
    EXPECT_EQ(updates->status(), UpdateStatus());
    ASSERT_TRUE(isAsked(u"Cancel"_s));
    service.tellPercentage(70);
    service.end(1);
    service.mute.clear();
    EXPECT_TRUE(check(Phase::available)) << "what was given up is not heard any more";
    EXPECT_EQ(told, phases({Phase::checking, Phase::idle, Phase::checking, Phase::available}));
}

TEST_F(PackageKitUpdatesTest, hearsNothingOfWhatWasGivenUpThoughItHadAnAnswer) {
    bus.stop();
    BusConnection nowhere(bus.address());
    updates =
        std::make_unique<PackageKitUpdates>(nowhere.bus(), u"/usr/bin/tavi"_s, u"0.1.0"_s, false);
    updates->checkForUpdates(); // which is answered in the next turn
    updates->cancel();
    EXPECT_FALSE(eventually([&] { return updates->status() != UpdateStatus(); }, 100));
}

TEST_F(PackageKitUpdatesTest, installsWhatItFoundAfterATrial) {
    find();
    service.answers[u"UpdatePackages"_s].percentages = {30};
    service.trial = FakePackageKit::Answer{.packages = {{11, newerId}, {12, u"lib;1;amd64;s"_s}}};
    ASSERT_TRUE(install(Phase::installed));
    EXPECT_EQ(updates->status().version, u"0.2.0"_s);
    EXPECT_EQ(service.calls.count(u"UpdatePackages"_s), 2);
    EXPECT_EQ(service.arguments[u"UpdatePackages"_s],
              (QVariantList{quint64(2), QStringList{newerId}}))
        << "of trusted packages alone";
    EXPECT_EQ(told, phases({Phase::installing, Phase::installed}));
    EXPECT_EQ(progress, (QList<int>{-1, 30, -1}));
}

TEST_F(PackageKitUpdatesTest, installsNothingThatWouldRemoveOtherSoftware) {
    find();
    service.trial = FakePackageKit::Answer{.packages = {{13, u"other;3;amd64;installed"_s}}};
    ASSERT_TRUE(install(Phase::failed));
    EXPECT_EQ(updates->status().problem,
              u"Version 0.2.0 would remove other software, so it is left to your system's own "
              u"software program."_s);
    EXPECT_EQ(service.calls.count(u"UpdatePackages"_s), 1);
    EXPECT_EQ(service.flags(), 6U) << "only tried";
}

TEST_F(PackageKitUpdatesTest, tellsARefusalFromAFailureAndMayBeTriedAgain) {
    find();
    service.answers[u"UpdatePackages"_s] = {
        .exit = 2, .error = 48, .details = u"Failed to obtain authentication."_s};
    service.trial = FakePackageKit::Answer{};
    ASSERT_TRUE(install(Phase::refused));
    EXPECT_EQ(updates->status(), (UpdateStatus{.phase = Phase::refused, .version = u"0.2.0"_s}));
    service.answers[u"UpdatePackages"_s] = {
        .callError = u"org.freedesktop.PackageKit.Transaction.RefusedByPolicy"_s};
    ASSERT_TRUE(install(Phase::refused));
    service.answers[u"UpdatePackages"_s] = {};
    EXPECT_TRUE(install(Phase::installed));
}

TEST_F(PackageKitUpdatesTest, tellsWhyAnInstallationFailed) {
    find();
    service.answers[u"UpdatePackages"_s] = {.exit = 2, .error = 26, .details = u"locked"_s};
    service.trial = FakePackageKit::Answer{};
    ASSERT_TRUE(install(Phase::failed));
    EXPECT_EQ(updates->status().problem, u"Other software is being installed right now."_s);
}

TEST_F(PackageKitUpdatesTest, keepsInstallingUntilTheServiceHasStopped) {
    find();
    service.mute = {u"UpdatePackages"_s};
    service.trial = FakePackageKit::Answer{};
    updates->install();
    ASSERT_TRUE(isAsked(u"UpdatePackages"_s, 2));
    updates->cancel();
    ASSERT_TRUE(isAsked(u"Cancel"_s));
    EXPECT_EQ(updates->status().phase, Phase::installing);
    service.end(3, 17);
    ASSERT_TRUE(becomes(Phase::available));
    EXPECT_EQ(updates->status().version, u"0.2.0"_s);
}

TEST_F(PackageKitUpdatesTest, installsNothingWhenItWasToStopDuringTheTrial) {
    find();
    service.mute = {u"UpdatePackages"_s};
    service.isMuteAboutTrials = true;
    updates->install();
    ASSERT_TRUE(isAsked(u"UpdatePackages"_s));
    updates->cancel();
    ASSERT_TRUE(isAsked(u"Cancel"_s));
    service.end(1);
    ASSERT_TRUE(becomes(Phase::available));
    EXPECT_EQ(service.calls.count(u"UpdatePackages"_s), 1);
    service.mute.clear();
    service.trial = FakePackageKit::Answer{};
    EXPECT_TRUE(install(Phase::installed)) << "and may be installed after all";
}

TEST_F(PackageKitUpdatesTest, mayBeInstalledAlthoughItWasToStop) {
    find();
    service.mute = {u"UpdatePackages"_s};
    service.trial = FakePackageKit::Answer{};
    updates->install();
    ASSERT_TRUE(isAsked(u"UpdatePackages"_s, 2));
    updates->cancel();
    service.end(1);
    EXPECT_TRUE(becomes(Phase::installed)) << "the service is past the point";
}

TEST_F(PackageKitUpdatesTest, mayEndWhileAsked) {
    service.mute = {u"RefreshCache"_s};
    service.appear();
    listen();
    updates->checkForUpdates();
    ASSERT_TRUE(isAsked(u"RefreshCache"_s));
    updates.reset();
    service.end(1);
    EXPECT_FALSE(eventually([&] { return service.calls.contains(u"GetUpdates"_s); }, 100));
}

TEST(PackagedProgram, liesWhereTheSystemKeepsItsOwn) {
    EXPECT_TRUE(canBelongToPackage(u"/usr/bin/tavi"_s));
    EXPECT_TRUE(canBelongToPackage(u"/opt/tavi/tavi"_s));
    EXPECT_FALSE(canBelongToPackage(u"/usr/local/bin/tavi"_s));
    EXPECT_FALSE(canBelongToPackage(u"/home/ada/usr/bin/tavi"_s));
    EXPECT_FALSE(canBelongToPackage({}));
}

} // namespace zeph
