// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/calendar/EdsFixture.h"
#include "adapters/calendar/FakeCalendarDaemon.h"
#include "support/Environment.h"

namespace zeph {

/// The bus of the test process, without any server; GLib keeps one bus a process.
class BareBusEnvironment : public testing::Environment {
public:
    void SetUp() override {
        instance() = std::make_unique<PrivateBus>();
        qputenv("DBUS_SESSION_BUS_ADDRESS", instance()->address().toUtf8());
    }
    void TearDown() override { instance().reset(); }

    static std::unique_ptr<PrivateBus> &instance() {
        static std::unique_ptr<PrivateBus> bus;
        return bus;
    }
};

inline testing::Environment *const bareBusEnvironment =
    testing::AddGlobalTestEnvironment(new BareBusEnvironment);

/// The store on a bus where a made-up server comes and goes.
class EdsDaemonFixture : public EdsFixture {
protected:
    /// Has the daemon's one event start so many minutes after ten.
    void setEventAt(int minute) {
        const QByteArray text = "20240507T08" + QByteArray::number(minute).rightJustified(2, '0');
        daemon.setEvent("UID:e\nSUMMARY:Event\nDTSTART:" + text + "00Z\nDURATION:PT5M");
    }

    bool hasEventAt(int minute) {
        const auto events = eventsOf(2024, 5, 7);
        return events && *events == std::vector<CalendarEvent>{{false, at(2024, 5, 7, 10, minute),
                                                                QStringLiteral("Event")}};
    }

    bool comesToHaveEventAt(int minute) {
        return waitUntil([&] { return hasEventAt(minute); }, std::chrono::seconds(20));
    }

    FakeCalendarDaemon daemon{BareBusEnvironment::instance()->address()};
};

} // namespace zeph
