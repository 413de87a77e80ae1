// SPDX-License-Identifier: MIT
#include "app/StartClaim.h"

#include "adapters/bus/PrivateBus.h"
#include "app/RequestInbox.h"

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace zeph {

namespace {

constexpr std::chrono::milliseconds ample = 20s; // for what comes at once where all is well

/// A start of the program on a bus on which another one may run.
class StartClaimTest : public testing::Test {
protected:
    /// Has another program own the name, and waits until it does.
    void startOther() {
        std::optional<InstanceRole> role;
        other.claim([&](InstanceRole settled) { role = settled; });
        ASSERT_TRUE(eventually([&] { return role.has_value(); }));
        ASSERT_EQ(role, InstanceRole::primary);
    }

    /// Asks the start for the action as soon as it has the name, as the bus does that starts it.
    void requestAction(const QString &name) {
        QObject::connect(&watcher, &QDBusServiceWatcher::serviceRegistered, &watcher,
                         [this, name] { sendAction(name); });
    }

    void sendAction(const QString &name) {
        QDBusMessage call =
            QDBusMessage::createMethodCall(u"com.tavi.Tavi"_s, u"/com/tavi/Tavi"_s,
                                           u"org.freedesktop.Application"_s, u"ActivateAction"_s);
        call << name << QVariantList() << QVariantMap();
        launcher.bus().send(call);
    }

    PrivateBus bus;
    BusConnection first{bus.address()};
    BusConnection second{bus.address()};
    BusConnection launcher{bus.address()};
    QDBusServiceWatcher watcher{u"com.tavi.Tavi"_s, launcher.bus(),
                                QDBusServiceWatcher::WatchForRegistration};
    std::vector<ApplicationRequest> asked; ///< of the other one
    SingleInstance other{first.bus(),
                         [this](const ApplicationRequest &request) { asked.push_back(request); }};
    RequestInbox requests{RequestInbox::Start::byUser};
    SingleInstance instance{second.bus(),
                            [this](const ApplicationRequest &one) { requests.take(one); }};
};

TEST_F(StartClaimTest, aStartBesideNoOtherRuns) {
    StartClaim claim(instance, requests, {.role = ample, .request = ample});
    EXPECT_TRUE(claim.isToRun());
}

TEST_F(StartClaimTest, aSecondStartCallsTheFirstAndEnds) {
    startOther();
    StartClaim claim(instance, requests, {.role = ample, .request = ample});
    EXPECT_FALSE(claim.isToRun());
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked.front().kind, ApplicationRequest::Kind::activate);
}

TEST_F(StartClaimTest, aBusThatTakesItsTimeDoesNotHoldTheStartUp) {
    startOther();
    bus.freeze();
    StartClaim claim(instance, requests, {.role = 10ms, .request = ample});
    EXPECT_TRUE(claim.isToRun());
    bus.thaw();
}

TEST_F(StartClaimTest, aSecondStartOnASlowBusStillCallsTheFirst) {
    startOther();
    bus.freeze();
    StartClaim claim(instance, requests, {.role = 10ms, .request = ample});
    ASSERT_TRUE(claim.isToRun());
    QTimer::singleShot(50ms, [this] { bus.thaw(); });
    EXPECT_TRUE(claim.callRunning());
    EXPECT_EQ(asked.size(), 1U) << "and only once";
}

TEST_F(StartClaimTest, aBusThatHangsCallsNobody) {
    startOther();
    bus.freeze();
    StartClaim claim(instance, requests, {.role = 10ms, .request = ample});
    ASSERT_TRUE(claim.isToRun());
    EXPECT_FALSE(claim.callRunning());
    bus.thaw();
}

TEST_F(StartClaimTest, withoutABusNobodyIsCalled) {
    bus.stop();
    BusConnection nowhere(bus.address());
    SingleInstance alone(nowhere.bus(), [](const ApplicationRequest &) {});
    StartClaim claim(alone, requests, {.role = ample, .request = ample});
    EXPECT_TRUE(claim.isToRun());
    EXPECT_FALSE(claim.callRunning());
}

TEST_F(StartClaimTest, aNameOfItsOwnLeadsToNoOtherProgram) {
    bus.freeze();
    StartClaim claim(instance, requests, {.role = 10ms, .request = ample});
    ASSERT_TRUE(claim.isToRun());
    bus.thaw(); // the other one is on another bus
    EXPECT_FALSE(claim.callRunning());
}

class StartByTheBusTest : public StartClaimTest {
protected:
    RequestInbox starting{RequestInbox::Start::byRequest};
    BusConnection third{bus.address()};
    SingleInstance started{third.bus(),
                           [this](const ApplicationRequest &one) { starting.take(one); }};
};

TEST_F(StartByTheBusTest, aStartForNothingButTheEndDoesNotRun) {
    requestAction(u"quit"_s);
    StartClaim claim(started, starting, {.role = ample, .request = ample});
    EXPECT_FALSE(claim.isToRun());
}

TEST_F(StartByTheBusTest, aStartForAWindowRuns) {
    requestAction(u"settings"_s);
    StartClaim claim(started, starting, {.role = ample, .request = ample});
    EXPECT_TRUE(claim.isToRun());
}

TEST_F(StartByTheBusTest, aRequestThatNeverComesDoesNotHoldTheStartUp) {
    StartClaim claim(started, starting, {.role = ample, .request = 10ms});
    EXPECT_TRUE(claim.isToRun());
}

} // namespace

} // namespace zeph
