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
    ASSERT_TRUE(lookForDesktop("files"));
    EXPECT_FALSE(lookForDesktop("files")->isDrawn);
    const auto desktop = client.show({.geometry = {900, 400, 200, 100},
                                      .type = "_NET_WM_WINDOW_TYPE_DESKTOP",
                                      .instance = "files",
                                      .name = "Files",
                                      .process = 4711});
    EXPECT_TRUE(waitUntil([] { return lookForDesktop("files")->isDrawn; }));
    EXPECT_EQ(lookForDesktop("files")->process, 4711U);
    client.destroy(desktop);
    EXPECT_TRUE(waitUntil([] { return !lookForDesktop("files")->isDrawn; }));
}

TEST(X11DesktopLook, tellsNothingWithoutADisplay) {
    const ScopedVariable display("DISPLAY", ":999999");
    EXPECT_FALSE(lookForDesktop("files"));
}

} // namespace zeph
