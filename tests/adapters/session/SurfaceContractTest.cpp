// SPDX-License-Identifier: MIT
#include "plasma/ShownPictures.h"
#include "wayland/FakeCompositor.h"
#include "wayland/WaylandClient.h"
#include "x11/PlayedDesktop.h"
#include "x11/X11Fixture.h"

#include "adapters/session/plasma/PictureFolders.h"
#include "adapters/session/plasma/PlasmaPictureSurface.h"
#include "adapters/session/x11/X11DesktopPicture.h"
#include "adapters/session/x11/X11RootPixmapSurface.h"
#include "base/Background.h"
#include "support/FakeWindowServer.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"

#include <QTemporaryDir>

namespace zeph {

namespace {

/// What every surface promises, whatever shows it. Each kind brings a display with a window server.
struct X11Kind {
    X11Kind()
        : connection(X11Connection::open(session.display())),
          client(session.display()),
          server(X11WindowServer::create(*connection)) {}

    std::unique_ptr<DesktopSurface> make(const Screen &screen) {
        return server->makeDesktopSurface(screen, false);
    }
    bool waitForShown(const QImage &expected) {
        return waitUntil([&] { return client.screenshot(expected.rect()) == expected; });
    }
    /// Lets the display read the pixels until the next turn of the loop, or `setFree`.
    static void setFree() {}
    static void keepBusy(DesktopSurface &surface) {
        surface.show([](QImage &frame) { return QRegion(frame.rect()); });
    }

    XvfbSession session;
    std::unique_ptr<X11Connection> connection;
    XTestClient client;
    std::unique_ptr<X11WindowServer> server;
};

/// In the picture of a program that draws icons, of which there is none where the tests paint.
struct RootPixmapKind {
    RootPixmapKind()
        : desktop(session.display(), {1280, 800}, Qt::darkRed),
          connection(X11Connection::open(session.display())),
          client(session.display()),
          picture(*connection, [] {}) {
        picture.setTarget(desktop.target());
    }

    std::unique_ptr<DesktopSurface> make(const Screen &screen) {
        return std::make_unique<X11RootPixmapSurface>(*connection, picture, screen);
    }
    bool waitForShown(const QImage &expected) {
        return waitUntil([&] { return client.screenshot(expected.rect()) == expected; });
    }
    static void setFree() {}
    /// What is put is more than is sent without shared memory, and read in a later turn.
    static void keepBusy(DesktopSurface &surface) {
        surface.show([](QImage &frame) { return QRegion(frame.rect()); });
    }

    XvfbSession session;
    PlayedDesktop desktop;
    std::unique_ptr<X11Connection> connection;
    XTestClient client;
    X11DesktopPicture picture;
};

struct FakeKind {
    std::unique_ptr<DesktopSurface> make(const Screen &screen) {
        auto surface = server.makeDesktopSurface(screen, false);
        latest = dynamic_cast<FakeDesktopSurface *>(surface.get());
        return surface;
    }
    bool waitForShown(const QImage &expected) const {
        return server.logs.back()->lastFrame.copy(expected.rect()) == expected;
    }
    void setFree() const { latest->setBusy(false); }
    void keepBusy(DesktopSurface & /*surface*/) const { latest->setBusy(true); }

    FakeWindowServer server;
    FakeDesktopSurface *latest = nullptr;
};

/// On an output of 400 × 300 that tells of no other size.
struct LayerKind {
    LayerKind()
        : compositor({.release = FakeCompositor::Release::whenReplaced}),
          client(compositor.socket()) {}

    std::unique_ptr<DesktopSurface> make(Screen screen) const {
        screen.persistentID = client.outputs->all().at(0).persistentID;
        screen.displayID = client.outputs->all().at(0).displayID;
        return client.server->makeDesktopSurface(screen, false);
    }
    bool waitForShown(const QImage &expected) {
        return waitUntil([&] { return compositor.layer().shown == expected; });
    }
    void setFree() { compositor.thread().thaw(); }
    void keepBusy(DesktopSurface &surface) {
        surface.show([](QImage &frame) { return QRegion(frame.rect()); });
        compositor.thread().freeze();
        surface.show([](QImage &frame) { return QRegion(frame.rect()); });
    }

    FakeCompositor compositor;
    WaylandClient client;
};

/// In a folder of pictures, written when the test lets the thread write.
struct PicturesKind {
    std::unique_ptr<DesktopSurface> make(const Screen &screen) {
        return std::make_unique<PlasmaPictureSurface>(
            PlasmaPictureSurface::Tools{folders, background, loop, [] { ADD_FAILURE(); }}, screen);
    }
    bool waitForShown(const QImage &expected) {
        setFree();
        return shownBy(folders.around() + u'/' + pictureFolderName({})) == expected;
    }
    void setFree() {
        while (executor.waiting() > 0) {
            executor.runAll();
            loop.drain();
        }
    }
    static void keepBusy(DesktopSurface &surface) {
        surface.show([](QImage &frame) { return QRegion(frame.rect()); });
    }

    QTemporaryDir around;
    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    Background background = Background::over(executor, loop);
    PictureFolders folders{around.filePath(QStringLiteral("tavi/plasma"))};
};

template <typename Kind>
class SurfaceContract : public testing::Test {
protected:
    static Screen size(int width, int height, int x = 0) {
        return screen(QString(), 1, width, height, x);
    }

    static QImage plain(QSize size, QColor colour) {
        QImage image(size, QImage::Format_RGB32);
        image.fill(colour);
        return image;
    }

    Kind kind;
};

using Kinds = testing::Types<X11Kind, RootPixmapKind, LayerKind, PicturesKind, FakeKind>;
TYPED_TEST_SUITE(SurfaceContract, Kinds);

TYPED_TEST(SurfaceContract, hasBlackPixelsOfTheScreensSizeAtFirst) {
    const auto surface = this->kind.make(this->size(400, 300));
    EXPECT_FALSE(surface->isTransparent());
    EXPECT_EQ(pixelsOf(*surface), this->plain({400, 300}, Qt::black));
}

TYPED_TEST(SurfaceContract, showsWhatIsPaintedAndAnswersIt) {
    const auto surface = this->kind.make(this->size(400, 300));
    fill(*surface, Qt::blue);
    surface->orderFront();
    QImage expected = this->plain({400, 300}, Qt::blue);
    ASSERT_TRUE(this->kind.waitForShown(expected));
    ASSERT_EQ(pixelsOf(*surface), expected);
    const QRegion damage = QRegion(10, 10, 20, 20) + QRegion(100, 200, 5, 6);
    const QRegion shown = surface->show([&](QImage &frame) {
        for (const QRect &rect : damage) {
            for (int y = rect.top(); y <= rect.bottom(); ++y) {
                for (int x = rect.left(); x <= rect.right(); ++x) {
                    frame.setPixelColor(x, y, Qt::red);
                    expected.setPixelColor(x, y, Qt::red);
                }
            }
        }
        return damage;
    });
    EXPECT_EQ(shown, damage);
    EXPECT_TRUE(this->kind.waitForShown(expected));
}

TYPED_TEST(SurfaceContract, answersNoMoreThanItHas) {
    const auto surface = this->kind.make(this->size(400, 300));
    EXPECT_EQ(surface->show([](QImage &) { return QRegion(-10, 290, 500, 500); }),
              QRegion(0, 290, 400, 10));
    EXPECT_EQ(surface->show([](QImage &) { return QRegion(); }), QRegion());
}

TYPED_TEST(SurfaceContract, keepsItsPixelsFromOnePaintingToTheNext) {
    const auto surface = this->kind.make(this->size(400, 300));
    fill(*surface, Qt::blue, {});
    EXPECT_EQ(pixelsOf(*surface), this->plain({400, 300}, Qt::blue));
    surface->setScreen(this->size(400, 300, 50));
    EXPECT_EQ(pixelsOf(*surface), this->plain({400, 300}, Qt::blue)) << "only the place changed";
}

TYPED_TEST(SurfaceContract, beginsAnewInAnotherSize) {
    const auto surface = this->kind.make(this->size(400, 300));
    fill(*surface, Qt::blue);
    surface->orderFront();
    this->kind.keepBusy(*surface);
    surface->setScreen(this->size(300, 200));
    this->kind.setFree();
    EXPECT_EQ(pixelsOf(*surface), this->plain({300, 200}, Qt::black));
    fill(*surface, Qt::green);
    EXPECT_TRUE(this->kind.waitForShown(this->plain({300, 200}, Qt::green)));
}

TYPED_TEST(SurfaceContract, paintsTheNewestOnceTheDisplayHasReadThePixels) {
    const auto surface = this->kind.make(this->size(400, 300));
    fill(*surface, Qt::blue);
    surface->orderFront();
    ASSERT_TRUE(this->kind.waitForShown(this->plain({400, 300}, Qt::blue)));
    pixelsOf(*surface);
    this->kind.keepBusy(*surface);
    int painted = 0;
    for (const QColor colour : {QColor(Qt::red), QColor(Qt::green)}) {
        EXPECT_EQ(surface->show([&painted, colour](QImage &frame) {
            ++painted;
            frame.fill(colour);
            return QRegion(frame.rect());
        }),
                  QRegion());
    }
    EXPECT_EQ(painted, 0);
    this->kind.setFree();
    EXPECT_TRUE(this->kind.waitForShown(this->plain({400, 300}, Qt::green)));
    EXPECT_EQ(painted, 1);
}

} // namespace

} // namespace zeph
