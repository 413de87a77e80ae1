// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/LayerSurface.h"

#include "FakePanels.h"
#include "LayerSurfaceFixture.h"

namespace zeph {

namespace {

/// Panels come and go.
struct LayerPanelsTest : LayerSurfaceTest {
    LayerPanelsTest() { client.outputs->follow(&panels); }
    ~LayerPanelsTest() override { client.outputs->follow(nullptr); }

    bool waitForLayer(int number, QColor colour) {
        return waitUntil([&] {
            const auto layers = compositor.layers();
            return layers.size() == 1 && layers[0].number == number &&
                   layers[0].shown == plainImage(kSize, colour);
        });
    }

    FakePanels panels;
};

} // namespace

TEST_F(LayerPanelsTest, isMadeAnewOnceAPanelCameSoThatItIsTheLaterOne) {
    const auto surface = showSurface(Qt::blue);
    panels.setHeight(30);
    EXPECT_TRUE(waitForLayer(2, Qt::blue));
    panels.setHeight(30);
    client.settle();
    EXPECT_EQ(compositor.layer().number, 2);
    fillSurface(*surface, Qt::red);
    EXPECT_TRUE(waitForLayer(2, Qt::red));
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerPanelsTest, staysWhereItIsWhenAPanelWentAndWhereLaterOnesLieAbove) {
    panels.setHeight(30);
    client.settle();
    const auto surface = showSurface(Qt::blue);
    panels.setHeight(0);
    client.settle();
    EXPECT_EQ(compositor.layer().number, 1);
    panels.isLaterBelow = false;
    panels.setHeight(30);
    client.settle();
    EXPECT_EQ(compositor.layer().number, 1);
}

TEST_F(LayerPanelsTest, isMadeAnewNoMoreOftenThanPanelsAreLookedAfter) {
    const auto surface = showSurface(Qt::blue);
    for (int i = 1; i <= 20; ++i) {
        panels.setHeight(i);
        client.settle();
    }
    ASSERT_TRUE(waitUntil([&] { return compositor.layer().number >= 3; })) << "for the last one";
    client.settle();
    EXPECT_LE(compositor.layer().number, 4);
    EXPECT_TRUE(waitForShown(Qt::blue));
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerPanelsTest, staysHiddenWhenAPanelCame) {
    const auto surface = showSurface(Qt::blue);
    surface->orderOut();
    ASSERT_TRUE(waitForNothing());
    panels.setHeight(30);
    ASSERT_TRUE(waitUntil([&] { return compositor.layer().number == 2; }));
    client.settle();
    EXPECT_EQ(compositor.layers().size(), 1U);
    EXPECT_TRUE(compositor.layer().shown.isNull());
    surface->orderFront();
    EXPECT_TRUE(waitForLayer(2, Qt::blue));
}

TEST_F(SilentCompositorTest, showsTheOneBeforeUntilTheOneForAPanelHasItsSize) {
    FakePanels panels;
    client.outputs->follow(&panels);
    const auto surface = client.makeSurface();
    fillSurface(*surface, Qt::blue);
    surface->orderFront();
    client.settle();
    compositor.configure(kSize);
    ASSERT_TRUE(waitForShown(Qt::blue));
    panels.setHeight(30);
    ASSERT_TRUE(waitUntil([&] { return compositor.layers().size() == 2; }));
    client.settle();
    EXPECT_EQ(compositor.layers()[0].shown, plainImage(kSize, Qt::blue));
    compositor.configure(kSize);
    EXPECT_TRUE(waitUntil([&] { return compositor.layers().size() == 1; }));
    EXPECT_TRUE(waitForShown(Qt::blue));
    EXPECT_EQ(losses, 0);
    client.outputs->follow(nullptr);
}

TEST_F(SilentCompositorTest, takesTheOneBeforeAwayWhenItIsHiddenInBetween) {
    FakePanels panels;
    client.outputs->follow(&panels);
    const auto surface = client.makeSurface();
    fillSurface(*surface, Qt::blue);
    surface->orderFront();
    client.settle();
    compositor.configure(kSize);
    ASSERT_TRUE(waitForShown(Qt::blue));
    panels.setHeight(30);
    ASSERT_TRUE(waitUntil([&] { return compositor.layers().size() == 2; }));
    surface->orderOut();
    client.settle();
    EXPECT_EQ(compositor.layers().size(), 1U);
    EXPECT_TRUE(compositor.layer().shown.isNull());
    client.outputs->follow(nullptr);
}

} // namespace zeph
