// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/calendar/CalendarOwner.h"
#include "adapters/calendar/CalendarServer.h"
#include "adapters/calendar/EdsFixture.h"

namespace zeph {

/// The one server of the test process; GLib keeps one bus a process.
class ServerEnvironment : public testing::Environment {
public:
    void SetUp() override { instance() = std::make_unique<CalendarServer>(); }
    void TearDown() override { instance().reset(); }

    static std::unique_ptr<CalendarServer> &instance() {
        static std::unique_ptr<CalendarServer> server;
        return server;
    }
};

inline testing::Environment *const serverEnvironment =
    testing::AddGlobalTestEnvironment(new ServerEnvironment);

/// The store over a real server.
class EdsServerFixture : public EdsFixture {
protected:
    static CalendarServer *server() { return ServerEnvironment::instance().get(); }

    void SetUp() override { ASSERT_TRUE(server()->isRunning()); }
};

} // namespace zeph
