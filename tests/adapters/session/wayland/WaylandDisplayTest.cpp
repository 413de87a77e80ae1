// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandDisplay.h"

#include "FakeCompositor.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace zeph {

TEST(WaylandDisplay, tellsWhetherTheCompositorAnswers) {
    constexpr std::chrono::milliseconds shortPatience{50};
    FakeCompositor compositor;
    EXPECT_TRUE(compositorAnswers(compositor.socket()));
    compositor.thread().freeze();
    EXPECT_FALSE(compositorAnswers(compositor.socket(), shortPatience));
    compositor.thread().end();
    EXPECT_FALSE(compositorAnswers(compositor.socket(), shortPatience));
    EXPECT_FALSE(compositorAnswers({}, shortPatience));
}

TEST(WaylandDisplay, tellsWhoListens) {
    FakeCompositor compositor;
    EXPECT_EQ(compositorProcess(compositor.socket()), getpid());
    compositor.thread().end();
    EXPECT_EQ(compositorProcess(compositor.socket()), std::nullopt);
}

} // namespace zeph
