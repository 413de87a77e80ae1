// SPDX-License-Identifier: MIT
#pragma once

#include "linux/eds/CalendarOwner.h"
#include "linux/eds/CalendarServer.h"
#include "linux/eds/EdsFixture.h"

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
