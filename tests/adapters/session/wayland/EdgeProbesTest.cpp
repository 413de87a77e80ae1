// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/EdgeProbes.h"

#include "FakeCompositor.h"
#include "WaylandClient.h"

namespace zeph {

namespace {

struct EdgeProbesTest : testing::Test {
    bool waitForLayers(std::size_t count) {
        return waitUntil([&] { return compositor.layers().size() == count; });
    }

    FakeCompositor compositor;
    WaylandClient client{compositor.socket()};
    int losses = 0;
    Subscription loss = client.connection->subscribeToLoss([this] { ++losses; });
    int news = 0;
    EdgeProbes probes{*client.connection, *client.outputs, [this] { ++news; }};
};

const FakeOutput kSecond{.name = "DP-2", .position = {400, 0}};

} // namespace

TEST_F(EdgeProbesTest, keepClearOfPanelsAndAreNeverSeen) {
    ASSERT_TRUE(waitForLayers(1));
    client.settle();
    const FakeLayerState probe = compositor.layer();
    EXPECT_EQ(probe.exclusiveZone, 0);
    EXPECT_EQ(probe.anchor, 15U) << "all edges";
    EXPECT_EQ(probe.output, "DP-1");
    EXPECT_EQ(probe.keyboard, 0U);
    EXPECT_EQ(probe.attaches, 0);
}

TEST_F(EdgeProbesTest, tellWheneverTheCompositorLaysThemOut) {
    ASSERT_TRUE(waitUntil([&] { return news == 1; }));
    compositor.configure({400, 270});
    EXPECT_TRUE(waitUntil([&] { return news == 2; }));
    client.settle();
    EXPECT_EQ(compositor.layer().acknowledged, compositor.layer().sent);
    EXPECT_EQ(losses, 0);
}

TEST_F(EdgeProbesTest, areOnEveryOutput) {
    ASSERT_TRUE(waitForLayers(1));
    compositor.addOutput(kSecond);
    ASSERT_TRUE(waitForLayers(2));
    EXPECT_EQ(compositor.layer().output, "DP-2");
    compositor.removeOutput("DP-1");
    ASSERT_TRUE(waitForLayers(1));
    client.settle();
    EXPECT_EQ(compositor.layer().number, 2) << "the other one stays";
    compositor.addOutput(FakeOutput());
    EXPECT_TRUE(waitForLayers(2));
    EXPECT_EQ(losses, 0);
}

TEST_F(EdgeProbesTest, end) {
    ASSERT_TRUE(waitForLayers(1));
    {
        const EdgeProbes more(*client.connection, *client.outputs, [] {});
        ASSERT_TRUE(waitForLayers(2));
    }
    client.settle();
    EXPECT_TRUE(waitForLayers(1));
}

} // namespace zeph
