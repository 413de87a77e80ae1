// SPDX-License-Identifier: MIT
#include "adapters/session/loss/LostDisplay.h"

#include "adapters/session/wayland/FakeCompositor.h"
#include "adapters/session/x11/X11Display.h"
#include "support/Environment.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace zeph {

namespace {

// Only a wait for what does not come back lasts so long.
constexpr std::chrono::milliseconds kShort{100};

class LostDisplayTest : public testing::Test {
protected:
    ScopedVariable compositor{"WAYLAND_DISPLAY", std::nullopt};
    ScopedVariable server{"DISPLAY", std::nullopt};
    ScopedVariable sway{"SWAYSOCK", std::nullopt};
};

} // namespace

TEST_F(LostDisplayTest, isThereOnceTheCompositorAnswers) {
    FakeCompositor running;
    compositor.set(running.socket());
    const ReturnedDisplay display = waitForLostDisplay();
    EXPECT_TRUE(display.isThere);
    EXPECT_FALSE(display.server);
    running.thread().end();
    EXPECT_FALSE(waitForLostDisplay(kShort).isThere);
}

TEST_F(LostDisplayTest, hasTheConversationOfTheSwayThatRunsNow) {
    const FakeCompositor running;
    compositor.set(running.socket());
    sway.set("/run/sway-ipc.1000.1.sock");
    ASSERT_TRUE(waitForLostDisplay().isThere);
    EXPECT_EQ(qgetenv("SWAYSOCK"), "/run/sway-ipc.1000." + QByteArray::number(getpid()) + ".sock");
}

TEST_F(LostDisplayTest, needsAName) {
    EXPECT_FALSE(waitForLostDisplay().isThere);
    server.set("far.example:0");
    EXPECT_FALSE(waitForLostDisplay().isThere);
}

} // namespace zeph
