// SPDX-License-Identifier: MIT
#include "adapters/secret/Elsewhere.h"
#include "adapters/secret/SecretServer.h"
#include "adapters/secret/SecretServiceStore.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// The connection that the libraries of a process share stays closed in it, so that this stands
// alone in its suite.
TEST(BusEndTest, noStoreIsSpokenToOnABusThatHasGone) {
    SecretServer server; // its bus alone
    GDBusConnection *const shared = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
    ASSERT_NE(shared, nullptr);
    // Not because of the lost bus: that would end the process.
    g_dbus_connection_set_exit_on_close(shared, FALSE);
    ASSERT_TRUE(g_dbus_connection_close_sync(shared, nullptr, nullptr) != FALSE);
    SecretServiceStore store;
    testing::internal::CaptureStderr();
    elsewhere([&] {
        EXPECT_EQ(store.copy(u"s"_s, u"a"_s).outcome, SecretOutcome::unavailable);
        EXPECT_EQ(store.add(u"s"_s, u"a"_s, "x"), SecretOutcome::unavailable);
    });
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "the libraries complain of it";
    g_object_unref(shared);
}

} // namespace

} // namespace zeph
