// SPDX-License-Identifier: MIT
#include "adapters/calendar/EdsDaemonFixture.h"

#include <gio/gio.h>

namespace zeph {

namespace {

class EdsBusEndTest : public EdsDaemonFixture {};

} // namespace

TEST_F(EdsBusEndTest, noWordsAreLostToABusThatHasGone) {
    // As another library does, which keeps the connection that all share.
    GDBusConnection *const shared = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    ASSERT_NE(shared, nullptr);
    g_dbus_connection_set_exit_on_close(shared, FALSE);
    BareBusEnvironment::instance()->stop();
    ASSERT_TRUE(waitUntil([&] { return g_dbus_connection_is_closed(shared) != FALSE; }));
    testing::internal::CaptureStderr();
    for (int round = 0; round < 10; ++round) {
        EXPECT_EQ(eventsOf(2024, 5, 7), std::nullopt);
        runLoopFor(std::chrono::milliseconds(30));
    }
    store.reset();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    g_object_unref(shared);
}

} // namespace zeph
