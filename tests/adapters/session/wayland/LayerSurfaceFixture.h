// SPDX-License-Identifier: MIT
#pragma once

#include "FakeCompositor.h"
#include "WaylandClient.h"

namespace zeph {

/// A surface on a display of a compositor that is played.
struct LayerSurfaceTest : testing::Test {
    static inline const QSize kSize{400, 300};

    explicit LayerSurfaceTest(const FakeCompositor::Options &options = {})
        : compositor(options), client(compositor.socket()) {
        loss = client.connection->subscribeToLoss([this] { ++losses; });
    }

    std::unique_ptr<DesktopSurface> showSurface(QColor colour) {
        auto surface = client.makeSurface();
        fillSurface(*surface, colour);
        surface->orderFront();
        EXPECT_TRUE(waitForShown(colour));
        return surface;
    }
    bool waitForShown(QColor colour, QSize size = kSize) {
        return waitUntil([&] { return compositor.layer().shown == plainImage(size, colour); });
    }
    /// One pixel of nothing.
    bool waitForNothing() {
        return waitUntil([&] {
            const QImage shown = compositor.layer().shown;
            return shown.size() == QSize(1, 1) && shown.pixel(0, 0) == 0;
        });
    }

    FakeCompositor compositor;
    WaylandClient client;
    int losses = 0;
    Subscription loss;
};

/// Layers are told of a size when the test says so.
struct SilentCompositorTest : LayerSurfaceTest {
    SilentCompositorTest() : LayerSurfaceTest({.configuresByItself = false}) {}
};

} // namespace zeph
