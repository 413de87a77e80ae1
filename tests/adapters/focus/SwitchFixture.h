// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/focus/FakeSessionService.h"
#include "adapters/focus/QuietSwitch.h"
#include "adapters/power/QuietestHold.h"
#include "support/LeastGrowth.h"

#include <QDBusPendingCallWatcher>

namespace zeph {

/// A private bus with a service that the test plays and that is not there before
/// `service.appear()`, and a switch that asks it.
template <typename Switch>
class SwitchFixture : public testing::Test {
protected:
    explicit SwitchFixture(const QString &name) : service(bus.address(), name) {}

    void listen() {
        quiet = std::make_unique<Switch>(client.bus(), [this] { ++news; });
    }
    /// True once the switch tells `wanted`.
    testing::AssertionResult becomes(std::optional<bool> wanted) {
        if (eventually([&] { return quiet->isQuiet() == wanted; })) {
            return testing::AssertionSuccess();
        }
        const auto told = quiet->isQuiet();
        return testing::AssertionFailure() << (told ? (*told ? "quiet" : "not quiet") : "unknown");
    }
    /// True once the service was asked `count` times and every answer was worked off.
    bool settlesAfter(int count) {
        const bool isAsked = eventually([&] { return service.questions >= count; });
        // The bus keeps the order: when it answers the client, what came before has arrived.
        bool isAnswered = false;
        QObject context;
        callAsync(client.bus(), markerCall(), &context, [&] { isAnswered = true; });
        return isAsked && eventually([&] { return isAnswered; });
    }

    /// The longest hold of the main thread while the service is there but mute.
    double holdWhileMute() {
        service.isMute = true;
        listen(); // to subscribe is to ask the bus, which always answers
        return quietestHoldMs([&](const MainThreadWatch &watch) {
            service.vanish();
            service.questions = 0;
            service.appear();
            EXPECT_TRUE(eventually([&] { return service.questions == 1 && watch.beats() > 50; }));
            EXPECT_EQ(quiet->isQuiet(), std::nullopt);
        });
    }

    /// Bytes on the heap that 200 ends and starts of the service add, each of them answered; the
    /// least of five such rounds.
    std::int64_t growthOfRestarts() {
        service.value = true;
        service.appear();
        listen();
        EXPECT_TRUE(becomes(true));
        const auto restartTenTimes = [&] {
            for (int count = 0; count < 10; ++count) {
                const int before = service.questions;
                service.value = count % 2 == 0;
                service.restart();
                ASSERT_TRUE(eventually([&] { return service.questions > before; }));
                ASSERT_TRUE(becomes(count % 2 == 0));
            }
        };
        for (int warmUp = 0; warmUp < 10; ++warmUp) {
            restartTenTimes();
        }
        return leastGrowth(5, [&] {
            for (int cycle = 0; cycle < 20; ++cycle) {
                restartTenTimes();
            }
        });
    }

    PrivateBus bus;
    FakeSessionService service;
    BusConnection client{bus.address()};
    std::unique_ptr<QuietSwitch> quiet;
    int news = 0;

private:
    static QDBusMessage markerCall() {
        return QDBusMessage::createMethodCall(
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
            QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId"));
    }
    template <typename Done>
    static void callAsync(QDBusConnection &connection, const QDBusMessage &call, QObject *context,
                          Done done) {
        auto *watcher = new QDBusPendingCallWatcher(connection.asyncCall(call), context);
        QObject::connect(watcher, &QDBusPendingCallWatcher::finished, context, done);
    }
};

} // namespace zeph
