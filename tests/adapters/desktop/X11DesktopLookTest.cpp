// SPDX-License-Identifier: MIT
#include "adapters/desktop/X11DesktopLook.h"

#include "support/Environment.h"
#include "support/WaitUntil.h"
#include "support/XTestClient.h"
#include "support/XvfbSession.h"

#include <gtest/gtest.h>

namespace zeph {

TEST(X11DesktopLook, findsTheDesktopOfAProgramAmongItsWindows) {
    XvfbSession session;
    ASSERT_TRUE(session.isRunning());
    ASSERT_TRUE(session.startOpenbox());
    const ScopedVariable display("DISPLAY", session.display());
    XTestClient client(session.display());
    client.show({.geometry = {0, 0, 200, 100}, .instance = "files", .name = "Files"});
    client.show({.geometry = {600, 400, 200, 100},
                 .type = "_NET_WM_WINDOW_TYPE_DESKTOP",
                 .instance = "other",
                 .name = "files"});
    EXPECT_EQ(hasDesktopWindow("files"), false);
    const auto desktop = client.show({.geometry = {900, 400, 200, 100},
                                      .type = "_NET_WM_WINDOW_TYPE_DESKTOP",
                                      .instance = "files",
                                      .name = "Files"});
    EXPECT_TRUE(waitUntil([] { return hasDesktopWindow("files") == true; }));
    client.destroy(desktop);
    EXPECT_TRUE(waitUntil([] { return hasDesktopWindow("files") == false; }));
}

TEST(X11DesktopLook, tellsNothingWithoutADisplay) {
    const ScopedVariable display("DISPLAY", ":999999");
    EXPECT_EQ(hasDesktopWindow("files"), std::nullopt);
}

} // namespace zeph
