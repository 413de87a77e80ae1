// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandFrames.h"

#include "FakeCompositor.h"
#include "WaylandClient.h"
#include "support/FullDisk.h"

namespace zeph {

namespace {

using Release = FakeCompositor::Release;

/// The buffers behind a visible surface of a compositor that reads pixels in this way.
struct Shown {
    explicit Shown(Release release)
        : compositor({.release = release}),
          client(compositor.socket()),
          surface(client.makeSurface()) {
        fillSurface(*surface, Qt::blue);
        surface->orderFront();
        EXPECT_TRUE(waitForShown(Qt::blue));
    }

    bool waitForShown(QColor colour) {
        return waitUntil([&] {
            return compositor.layer().shown == plainImage({400, 300}, colour);
        });
    }
    /// A frame some time after the one before.
    void showLater(QColor colour) {
        client.now += std::chrono::seconds(10);
        fillSurface(*surface, colour);
        EXPECT_TRUE(waitForShown(colour));
        client.settle();
    }

    FakeCompositor compositor;
    WaylandClient client;
    std::unique_ptr<DesktopSurface> surface;
};

} // namespace

TEST(WaylandFrames, areOneBufferWhereTheCompositorReadsAtOnce) {
    Shown shown(Release::atOnce);
    for (const QColor colour : {QColor(Qt::red), QColor(Qt::green), QColor(Qt::blue)}) {
        shown.showLater(colour);
        EXPECT_EQ(shown.compositor.liveBuffers(), 1);
    }
}

TEST(WaylandFrames, areOneBufferBetweenRareFramesWhereTheCompositorKeepsTheShownOne) {
    Shown shown(Release::whenReplaced);
    for (const QColor colour : {QColor(Qt::red), QColor(Qt::green), QColor(Qt::blue)}) {
        shown.showLater(colour);
        EXPECT_EQ(shown.compositor.liveBuffers(), 1);
    }
}

TEST(WaylandFrames, areTwoThatTakeTurnsWhileFramesFollowEachOtherFast) {
    Shown shown(Release::whenReplaced);
    shown.showLater(Qt::red);
    for (int i = 0; i < 10; ++i) {
        fillPart(*shown.surface, Qt::white, {10 * i, 0, 10, 10});
        shown.client.settle();
        EXPECT_EQ(shown.compositor.liveBuffers(), 2);
    }
    QImage expected = plainImage({400, 300}, Qt::red);
    for (int x = 0; x < 100; ++x) {
        for (int y = 0; y < 10; ++y) {
            expected.setPixelColor(x, y, Qt::white);
        }
    }
    EXPECT_EQ(shown.compositor.layer().shown, expected);
    shown.showLater(Qt::green);
    EXPECT_EQ(shown.compositor.liveBuffers(), 1);
}

TEST(WaylandFrames, areOneBufferSoonAfterFramesThatFollowedEachOtherFast) {
    Shown shown(Release::whenReplaced);
    shown.showLater(Qt::red);
    fillPart(*shown.surface, Qt::white, {0, 0, 10, 10});
    shown.client.settle();
    ASSERT_EQ(shown.compositor.liveBuffers(), 2);
    shown.client.now += std::chrono::seconds(1);
    EXPECT_TRUE(waitUntil([&] { return shown.compositor.liveBuffers() == 1; }));
    shown.showLater(Qt::green);
    EXPECT_EQ(shown.compositor.liveBuffers(), 1);
}

TEST(WaylandFrames, keepTheirPixelsFromOneBufferToTheNext) {
    Shown shown(Release::whenReplaced);
    shown.showLater(Qt::red);
    QImage before;
    shown.surface->show([&](QImage &frame) {
        before = frame.copy();
        return QRegion();
    });
    EXPECT_EQ(before, plainImage({400, 300}, Qt::red));
    EXPECT_EQ(shown.compositor.liveBuffers(), 1) << "nothing was painted";
}

TEST(WaylandFrames, neverChangePixelsThatTheCompositorReads) {
    Shown shown(Release::never);
    fillSurface(*shown.surface, Qt::red);
    ASSERT_TRUE(shown.waitForShown(Qt::red)) << "in a second buffer";
    fillSurface(*shown.surface, Qt::green);
    fillSurface(*shown.surface, Qt::yellow);
    shown.client.connection->waitForAnswers(); // no patience ends meanwhile
    EXPECT_EQ(shown.compositor.layer().shown, plainImage({400, 300}, Qt::red));
    EXPECT_EQ(shown.compositor.liveBuffers(), 2);
    shown.compositor.releaseBuffers();
    EXPECT_TRUE(shown.waitForShown(Qt::yellow)) << "the newest";
}

TEST(WaylandFrames, goOnWhereNoneIsEverReleasedAndDoNotPileUp) {
    Shown shown(Release::never);
    const std::vector<QColor> colours{Qt::red,   Qt::green, Qt::yellow,
                                      Qt::white, Qt::cyan,  Qt::gray};
    for (const QColor &colour : colours) {
        fillSurface(*shown.surface, colour);
        ASSERT_TRUE(shown.waitForShown(colour));
        EXPECT_LE(shown.compositor.liveBuffers(), 4);
    }
}

TEST(WaylandFrames, doNotPileUpBeforeACompositorThatStandsStill) {
    Shown shown(Release::whenReplaced);
    shown.showLater(Qt::red); // it is known by now for one that keeps what it shows
    shown.compositor.thread().freeze();
    fillSurface(*shown.surface, Qt::green);
    int painted = 0;
    shown.surface->show([&](QImage &frame) {
        ++painted;
        frame.fill(Qt::white);
        return QRegion(frame.rect());
    });
    bool isPatienceOver = false;
    QTimer::singleShot(std::chrono::milliseconds(150), [&] { isPatienceOver = true; });
    ASSERT_TRUE(waitUntil([&] { return isPatienceOver; }));
    EXPECT_EQ(painted, 0);
    shown.compositor.thread().thaw();
    EXPECT_TRUE(shown.waitForShown(Qt::white));
    EXPECT_EQ(painted, 1);
}

TEST(WaylandFrames, keepTheirPixelsInABufferThatReplacesAHeldOne) {
    Shown shown(Release::never);
    QImage expected = plainImage({400, 300}, Qt::blue);
    for (int i = 0; i < 4; ++i) {
        const QRect part(100 * i, 0, 100, 300);
        fillPart(*shown.surface, Qt::white, part);
        for (int x = part.left(); x <= part.right(); ++x) {
            for (int y = 0; y < 300; ++y) {
                expected.setPixelColor(x, y, Qt::white);
            }
        }
        ASSERT_TRUE(waitUntil([&] { return shown.compositor.layer().shown == expected; })) << i;
    }
}

TEST(WaylandFrames, thatCouldNotBeShownAreShownWithTheNext) {
    Shown shown(Release::whenReplaced);
    shown.showLater(Qt::red); // from here on each frame takes new memory
    const QRect first(0, 0, 10, 10);
    const QRect second(20, 0, 10, 10);
    const QRect third(40, 0, 10, 10);
    {
        const FullDisk disk(0);
        shown.client.now += std::chrono::seconds(10);
        EXPECT_EQ(fillPart(*shown.surface, Qt::white, first), QRegion());
        EXPECT_EQ(fillPart(*shown.surface, Qt::white, second), QRegion());
    }
    EXPECT_EQ(fillPart(*shown.surface, Qt::white, third), QRegion(first) + second + third);
    QImage expected = plainImage({400, 300}, Qt::red);
    for (const QRect &part : {first, second, third}) {
        for (int x = part.left(); x <= part.right(); ++x) {
            for (int y = part.top(); y <= part.bottom(); ++y) {
                expected.setPixelColor(x, y, Qt::white);
            }
        }
    }
    EXPECT_TRUE(waitUntil([&] { return shown.compositor.layer().shown == expected; }));
}

TEST(WaylandFrames, comeOnceThereIsMemory) {
    FakeCompositor compositor;
    const WaylandClient client(compositor.socket());
    std::unique_ptr<DesktopSurface> surface;
    {
        const FullDisk disk(0);
        surface = client.makeSurface();
        surface->orderFront();
        EXPECT_EQ(fillSurface(*surface, Qt::blue), QRegion());
    }
    fillSurface(*surface, Qt::blue);
    EXPECT_TRUE(waitUntil([&] {
        return compositor.layer().shown == plainImage({400, 300}, Qt::blue);
    }));
}

TEST(WaylandFrames, ofManySizesDoNotPileUpWhereNoneIsEverReleased) {
    Shown shown(Release::never);
    Screen screen = shown.client.outputs->all()[0];
    for (int i = 1; i <= 8; ++i) {
        screen.deviceFrame.setSize({400 - 10 * i, 300});
        shown.surface->setScreen(screen);
        fillSurface(*shown.surface, Qt::red);
        shown.client.settle();
        EXPECT_LE(shown.compositor.liveBuffers(), 4);
    }
}

TEST(WaylandFrames, areNoneWithoutASize) {
    FakeCompositor compositor;
    const WaylandClient client(compositor.socket());
    Screen empty = client.outputs->all()[0];
    empty.deviceFrame = {};
    const auto surface = client.server->makeDesktopSurface(empty, false);
    surface->orderFront();
    EXPECT_EQ(fillSurface(*surface, Qt::blue), QRegion());
    client.settle();
    surface->setScreen(client.outputs->all()[0]);
    fillSurface(*surface, Qt::blue);
    EXPECT_TRUE(waitUntil([&] {
        return compositor.layer().shown == plainImage({400, 300}, Qt::blue);
    }));
}

TEST(WaylandFrames, areMendedWhereAPainterKeptACopyOfTheImage) {
    Shown shown(Release::atOnce);
    QImage kept;
    for (const QColor colour : {QColor(Qt::red), QColor(Qt::green)}) {
        shown.surface->show([&](QImage &frame) {
            kept = frame;
            frame.fill(colour);
            return QRegion(frame.rect());
        });
        EXPECT_TRUE(shown.waitForShown(colour));
        shown.client.settle();
    }
}

} // namespace zeph
