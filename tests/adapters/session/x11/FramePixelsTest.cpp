// SPDX-License-Identifier: MIT
#include "X11Fixture.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace zeph {

using FramePixelsTest = X11Test;

namespace {

QImage stripes(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixel(x, y, qRgb(x % 256, y % 256, (x + y) % 256));
        }
    }
    return image;
}

bool isShared(const DesktopSurface &surface) {
    return dynamic_cast<const X11DesktopSurface &>(surface).isShared();
}

void paint(DesktopSurface &surface, const QImage &image) {
    surface.show([&](QImage &frame) {
        QPainter(&frame).drawImage(0, 0, image);
        return QRegion(frame.rect());
    });
}

} // namespace

TEST_F(FramePixelsTest, showsEveryPixelThatWasPresented) {
    const auto surface = showSurface(Qt::black);
    EXPECT_TRUE(isShared(*surface));
    const QImage expected = stripes(kWholeScreen.size());
    paint(*surface, expected);
    EXPECT_TRUE(waitUntil([&] { return client->screenshot(kWholeScreen) == expected; }));
}

TEST_F(FramePixelsTest, showsOnlyTheDamage) {
    const auto surface = showSurface(Qt::blue);
    QRegion damage(200, 100, 50, 40);
    damage += QRect(700, 500, 10, 10);
    fill(*surface, Qt::red, damage);
    ASSERT_TRUE(waitForPixel({220, 120}, Qt::red));
    QImage expected(kWholeScreen.size(), QImage::Format_RGB32);
    expected.fill(Qt::blue);
    QPainter painter(&expected);
    for (const QRect &rect : damage) {
        painter.fillRect(rect, Qt::red);
    }
    painter.end();
    EXPECT_TRUE(waitUntil([&] { return client->screenshot(kWholeScreen) == expected; }));
}

TEST_F(FramePixelsTest, ignoresDamageOutsideTheScreen) {
    const auto surface = showSurface(Qt::blue);
    fill(*surface, Qt::red, QRect(-100, -100, 150, 150) | QRect(1270, 790, 500, 500));
    EXPECT_TRUE(waitForPixel({1279, 799}, Qt::red));
    EXPECT_TRUE(waitForPixel({10, 10}, Qt::red));
}

TEST_F(FramePixelsTest, repaintsWhatWasCovered) {
    const auto surface = showSurface(Qt::blue);
    const auto cover = client->show(
        {.geometry = {300, 300, 100, 100}, .colour = 0xFF0000, .overridesRedirect = true});
    ASSERT_TRUE(waitForPixel({350, 350}, Qt::red));
    client->destroy(cover);
    EXPECT_TRUE(waitForPixel({350, 350}, Qt::blue));
    EXPECT_TRUE(waitForPixel({399, 399}, Qt::blue));
}

TEST_F(FramePixelsTest, isBlackBeforeTheFirstPixels) {
    client->show({.geometry = kWholeScreen, .colour = 0xFFFFFF});
    const auto surface = server->makeDesktopSurface(wholeScreen(), false);
    EXPECT_EQ(pixelsOf(*surface).pixel(5, 5), qRgb(0, 0, 0));
    const auto window = windowOf(*surface);
    surface->orderFront();
    ASSERT_TRUE(waitUntil([&] { return client->isViewable(window); }));
    client->raise(window);
    EXPECT_TRUE(waitForPixel({640, 400}, Qt::black));
}

TEST_F(FramePixelsTest, doesNotShowPixelsThatWerePaintedAfterPresenting) {
    const auto surface = showSurface(Qt::black);
    for (int i = 0; i < 40; ++i) {
        const QColor presented(0, 100 + i, 0);
        fill(*surface, presented);
        const auto isPainted = std::make_shared<bool>(false);
        surface->show([isPainted](QImage &frame) {
            *isPainted = true;
            frame.fill(Qt::white);
            return QRegion();
        });
        EXPECT_FALSE(*isPainted);
        connection->intern("ZEPH_TEST"); // the server has read what was shown
        QImage expected(kWholeScreen.size(), QImage::Format_RGB32);
        expected.fill(presented);
        ASSERT_EQ(client->screenshot(kWholeScreen), expected);
        ASSERT_TRUE(waitUntil([&] { return *isPainted; }));
    }
}

TEST_F(FramePixelsTest, survivesACopyOfTheImageThatIsKept) {
    const auto surface = showSurface(Qt::blue);
    QImage kept;
    surface->show([&](QImage &frame) {
        kept = frame;
        frame.fill(Qt::red);
        return QRegion(0, 0, 100, 100);
    });
    EXPECT_TRUE(waitForPixel({50, 50}, Qt::red));
    EXPECT_EQ(client->pixel({640, 400}), 0x0000FFU);
    fill(*surface, Qt::green);
    EXPECT_TRUE(waitForPixel({640, 400}, Qt::green));
}

TEST_F(FramePixelsTest, takesTheSizeOfItsNewScreen) {
    const auto surface = showSurface(Qt::blue);
    surface->setScreen(screen(QString(), 1, 800, 600, 100));
    EXPECT_EQ(pixelsOf(*surface).size(), QSize(800, 600));
    EXPECT_EQ(pixelsOf(*surface).pixel(5, 5), qRgb(0, 0, 0));
    const QImage expected = stripes({800, 600});
    paint(*surface, expected);
    EXPECT_TRUE(waitUntil([&] { return client->screenshot({100, 0, 800, 600}) == expected; }));
    EXPECT_EQ(client->geometry(windowOf(*surface)), QRect(100, 0, 800, 600));
}

TEST_F(FramePixelsTest, keepsItsPixelsWhenOnlyThePlaceOfTheScreenChanges) {
    const auto surface = server->makeDesktopSurface(screen(QString(), 1, 400, 300), false);
    fill(*surface, Qt::green);
    surface->orderFront();
    ASSERT_TRUE(waitForPixel({200, 200}, Qt::green));
    surface->setScreen(screen(QString(), 1, 400, 300, 600));
    EXPECT_TRUE(waitForPixel({999, 299}, Qt::green));
    EXPECT_EQ(pixelsOf(*surface).pixel(5, 5), QColor(Qt::green).rgb());
}

TEST_F(FramePixelsTest, aFewPixelsWakeNobody) {
    const auto surface = showSurface(Qt::blue);
    for (int i = 0; i < 3; ++i) {
        fill(*surface, Qt::red, QRect(200, 100, 300, 200));
        EXPECT_FALSE(lookAt(*surface)->isNull()) << "it can be painted again at once";
    }
    ASSERT_TRUE(waitForPixel({499, 299}, Qt::red));
    connection->intern("ZEPH_TEST"); // whatever the server has to say has come with the answer
    const X11Reply<xcb_generic_event_t> event(xcb_poll_for_queued_event(connection->xcb()));
    EXPECT_EQ(event, nullptr);
}

class UnsharedPixelsTest : public X11Test {
protected:
    UnsharedPixelsTest() : X11Test({.serverArguments = {u"-extension"_s, u"MIT-SHM"_s}}) {}
};

TEST_F(UnsharedPixelsTest, sendsThePixelsWhereMemoryCantBeShared) {
    const auto surface = showSurface(Qt::black);
    EXPECT_FALSE(isShared(*surface));
    const QImage expected = stripes(kWholeScreen.size());
    paint(*surface, expected);
    EXPECT_TRUE(waitUntil([&] { return client->screenshot(kWholeScreen) == expected; }));
}

TEST_F(UnsharedPixelsTest, sendsOnlyTheDamage) {
    const auto surface = showSurface(Qt::blue);
    fill(*surface, Qt::red, QRect(200, 100, 50, 40));
    ASSERT_TRUE(waitForPixel({249, 139}, Qt::red));
    EXPECT_EQ(client->pixel({250, 139}), 0x0000FFU);
    EXPECT_EQ(client->pixel({249, 140}), 0x0000FFU);
}

class RemotePixelsTest : public X11Test {
protected:
    RemotePixelsTest() : X11Test({.listensToTcp = true}) {}
};

TEST_F(RemotePixelsTest, sendsThePixelsToAServerBehindTheNetwork) {
    const auto remote = X11Connection::open("127.0.0.1" + session.display());
    ASSERT_TRUE(remote);
    EXPECT_FALSE(remote->isLocal());
    const auto remoteServer = X11WindowServer::create(*remote);
    const auto surface = remoteServer->makeDesktopSurface(wholeScreen(), false);
    EXPECT_FALSE(isShared(*surface));
    const QImage expected = stripes(kWholeScreen.size());
    paint(*surface, expected);
    surface->orderFront();
    EXPECT_TRUE(waitUntil([&] { return client->screenshot(kWholeScreen) == expected; }));
}

} // namespace zeph
