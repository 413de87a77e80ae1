// SPDX-License-Identifier: MIT
#include "adapters/session/loss/DisplaySocket.h"

#include <gtest/gtest.h>

namespace zeph {

namespace {

constexpr auto kNone = std::nullopt;

} // namespace

TEST(DisplaySocketTest, ofACompositorIsInTheRuntimeFolderOrWhereItsPathSays) {
    EXPECT_EQ(compositorSocket("wayland-1", "/run/user/1000"),
              (DisplaySocket{"/run/user/1000", "wayland-1"}));
    EXPECT_EQ(compositorSocket("/tmp/s/wayland-0", "/run/user/1000"),
              (DisplaySocket{"/tmp/s", "wayland-0"}));
    EXPECT_EQ(compositorSocket("/socket", {}), (DisplaySocket{"/", "socket"}));
}

TEST(DisplaySocketTest, ofACompositorNeedsANameAndAFolder) {
    EXPECT_EQ(compositorSocket({}, "/run/user/1000"), kNone);
    EXPECT_EQ(compositorSocket("wayland-1", {}), kNone);
    EXPECT_EQ(compositorSocket("wayland-1", "run"), kNone);
    EXPECT_EQ(compositorSocket("/run/", {}), kNone);
}

TEST(DisplaySocketTest, ofAnXServerGoesByItsNumber) {
    EXPECT_EQ(xServerSocket(":0"), (DisplaySocket{"/tmp/.X11-unix", "X0"}));
    EXPECT_EQ(xServerSocket(":12.1"), (DisplaySocket{"/tmp/.X11-unix", "X12"}));
    EXPECT_EQ(xServerSocket("unix:3.0"), (DisplaySocket{"/tmp/.X11-unix", "X3"}));
}

TEST(DisplaySocketTest, ofAnXServerElsewhereIsNotHere) {
    EXPECT_EQ(xServerSocket("far.example:0"), kNone);
    EXPECT_EQ(xServerSocket("localhost:10.0"), kNone) << "it comes through a tunnel";
    EXPECT_EQ(xServerSocket(":"), kNone);
    EXPECT_EQ(xServerSocket(":x"), kNone);
    EXPECT_EQ(xServerSocket("0"), kNone);
    EXPECT_EQ(xServerSocket({}), kNone);
}

} // namespace zeph
