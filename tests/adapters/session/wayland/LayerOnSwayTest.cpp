// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/EdgeProbes.h"
#include "adapters/session/wayland/LayerSurface.h"

#include "FakePanels.h"
#include "WaylandClient.h"
#include "support/SwaySession.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QSize kSize(1280, 720);

/// Vertical lines of one pixel each, which no scaling leaves as they are.
QImage lines(QSize size) {
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixelColor(x, y, x % 2 == 0 ? Qt::white : Qt::black);
        }
    }
    return image;
}

/// Whether the pictures are the same but for what rounding makes of an edge that is scaled.
bool looksLike(const QImage &picture, const QImage &expected) {
    constexpr int rounding = 4;
    const auto isNear = [](int a, int b) { return std::abs(a - b) <= rounding; };
    if (picture.size() != expected.size()) {
        return false;
    }
    for (int y = 0; y < expected.height(); ++y) {
        for (int x = 0; x < expected.width(); ++x) {
            const QRgb a = picture.pixel(x, y);
            const QRgb b = expected.pixel(x, y);
            if (!isNear(qRed(a), qRed(b)) || !isNear(qGreen(a), qGreen(b)) ||
                !isNear(qBlue(a), qBlue(b))) {
                return false;
            }
        }
    }
    return true;
}

QJsonObject focusedIn(const QJsonObject &node) {
    if (node[u"focused"_s].toBool()) {
        return node;
    }
    for (const QString &children : {u"nodes"_s, u"floating_nodes"_s}) {
        const QJsonArray nodes = node[children].toArray();
        for (const QJsonValue &child : nodes) {
            if (const QJsonObject found = focusedIn(child.toObject()); !found.isEmpty()) {
                return found;
            }
        }
    }
    return {};
}

/// A sway with a dark red background, and our side of it.
struct LayerOnSwayTest : testing::Test {
    explicit LayerOnSwayTest(const QByteArray &more = {})
        : sway({.configuration = "output * bg #550000 solid_color\n" + more}) {
        if (!sway.isRunning()) {
            throw std::runtime_error("sway did not start");
        }
        client = std::make_unique<WaylandClient>(sway.waylandDisplay());
        loss = client->connection->subscribeToLoss([this] { ++losses; });
        EXPECT_TRUE(waitForColour({600, 300}, kBackground));
    }

    QImage picture(const QString &output = u"HEADLESS-1"_s) const {
        const QByteArray bytes = sway.run({u"grim"_s, u"-t"_s, u"ppm"_s, u"-o"_s, output, u"-"_s});
        return QImage::fromData(bytes, "PPM").convertToFormat(QImage::Format_RGB32);
    }
    bool waitForPicture(const QImage &expected, const QString &output = u"HEADLESS-1"_s) const {
        return waitUntil([&] { return looksLike(picture(output), expected); });
    }
    bool waitForColour(QPoint spot, QColor colour, const QString &output = u"HEADLESS-1"_s) const {
        return waitUntil([&] {
            const QImage image = picture(output);
            return image.valid(spot) && image.pixelColor(spot) == colour;
        });
    }
    bool waitForScreens(std::size_t count) const {
        return waitUntil([&] { return client->outputs->all().size() == count; });
    }

    std::unique_ptr<DesktopSurface> showSurface(const Screen &screen, QColor colour) const {
        auto surface = client->server->makeDesktopSurface(screen, false);
        fillSurface(*surface, colour);
        surface->orderFront();
        return surface;
    }
    std::unique_ptr<DesktopSurface> showSurface(QColor colour) const {
        auto surface = showSurface(client->outputs->all().at(0), colour);
        EXPECT_TRUE(waitForPicture(plainImage(kSize, colour)));
        return surface;
    }

    QJsonObject focusedNode() const {
        const QByteArray tree = sway.run({u"swaymsg"_s, u"-r"_s, u"-t"_s, u"get_tree"_s});
        return focusedIn(QJsonDocument::fromJson(tree).object());
    }

    static inline const QColor kBackground{0x55, 0, 0};
    SwaySession sway;
    std::unique_ptr<WaylandClient> client;
    int losses = 0;
    Subscription loss;
};

/// With a bar of sway's own, hidden at first.
struct BarOnSwayTest : LayerOnSwayTest {
    BarOnSwayTest() : LayerOnSwayTest("bar {\n id bar\n mode invisible\n height 60\n}\n") {}
};

} // namespace

TEST_F(LayerOnSwayTest, coversTheBackgroundAndLeavesItWhenItEnds) {
    auto surface = showSurface(Qt::blue);
    surface.reset();
    EXPECT_TRUE(waitForPicture(plainImage(kSize, kBackground)));
}

TEST_F(LayerOnSwayTest, liesBelowAPanelOfItsLayerThatCameLater) {
    FakePanels panels;
    client->outputs->follow(&panels);
    const auto surface = showSurface(Qt::blue);
    const WaylandClient other(sway.waylandDisplay());
    const auto panel = other.makeSurface();
    fillSurface(*panel, Qt::red);
    panel->orderFront();
    other.settle();
    EXPECT_TRUE(waitForPicture(plainImage(kSize, Qt::blue))) << "this sway draws it below";
    panels.setHeight(30);
    EXPECT_TRUE(waitForPicture(plainImage(kSize, Qt::red)));
    EXPECT_EQ(losses, 0);
    client->outputs->follow(nullptr);
}

TEST_F(BarOnSwayTest, isNoticedWhenItComesAndGoes) {
    int news = 0;
    const EdgeProbes probes(*client->connection, *client->outputs, [&] { ++news; });
    const auto surface = showSurface(Qt::blue);
    client->settle();
    news = 0;
    for (const QColor &colour : {QColor(Qt::green), QColor(Qt::blue)}) {
        fillSurface(*surface, colour);
        EXPECT_TRUE(waitForPicture(plainImage(kSize, colour)));
    }
    EXPECT_EQ(news, 0) << "frames are none";
    ASSERT_TRUE(sway.tell(u"bar mode dock bar"_s));
    ASSERT_TRUE(waitUntil([&] { return news > 0; }));
    const int atComing = news;
    ASSERT_TRUE(sway.tell(u"bar mode invisible bar"_s));
    EXPECT_TRUE(waitUntil([&] { return news > atComing; }));
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerOnSwayTest, knowsTheOutputsOfSway) {
    const auto screens = client->outputs->all();
    ASSERT_EQ(screens.size(), 1U);
    EXPECT_EQ(screens[0].frame, QRectF(0, 0, 1280, 720));
    EXPECT_EQ(screens[0].scale, 1);
    EXPECT_TRUE(screens[0].persistentID->contains(u"HEADLESS-1"_s));
}

TEST_F(LayerOnSwayTest, showsThePartsThatChange) {
    const auto surface = showSurface(Qt::blue);
    QImage expected = plainImage(kSize, Qt::blue);
    for (int i = 0; i < 4; ++i) {
        const QRect part(100 * i, 50 * i, 60, 40);
        client->now += std::chrono::seconds(i == 2 ? 0 : 10);
        fillPart(*surface, Qt::green, part);
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                expected.setPixelColor(x, y, Qt::green);
            }
        }
        EXPECT_TRUE(waitForPicture(expected));
    }
}

TEST_F(LayerOnSwayTest, letsTheBackgroundThroughWhereItIsTransparent) {
    const auto surface = client->server->makeDesktopSurface(client->outputs->all().at(0), true);
    surface->show([](QImage &frame) {
        frame.fill(Qt::transparent);
        for (int y = 0; y < 100; ++y) {
            for (int x = 0; x < 100; ++x) {
                frame.setPixelColor(x, y, Qt::green);
            }
        }
        return QRegion(frame.rect());
    });
    surface->orderFront();
    EXPECT_TRUE(waitForColour({50, 50}, Qt::green));
    EXPECT_TRUE(waitForColour({600, 300}, kBackground));
}

TEST_F(LayerOnSwayTest, letsClicksReachTheDesktopBeneath) {
    ASSERT_TRUE(sway.tell(u"for_window [app_id=foot] floating enable"_s));
    ASSERT_GT(sway.start({u"foot"_s, u"sleep"_s, u"60"_s}), 0);
    ASSERT_TRUE(waitUntil([&] { return focusedNode()[u"app_id"_s] == u"foot"_s; }));
    ASSERT_TRUE(sway.tell(u"[app_id=foot] resize set 300 200, move position 10 10"_s));
    const auto surface = client->makeSurface();
    fillSurface(*surface, Qt::blue);
    surface->orderFront();
    ASSERT_TRUE(waitForColour({1000, 600}, Qt::blue));
    EXPECT_EQ(focusedNode()[u"app_id"_s], u"foot"_s);
    // sway gives the focus to the workspace itself where a click meets no surface.
    ASSERT_TRUE(sway.tell(u"seat - cursor set 1000 600"_s));
    ASSERT_TRUE(sway.tell(u"seat - cursor press button1"_s));
    ASSERT_TRUE(sway.tell(u"seat - cursor release button1"_s));
    EXPECT_TRUE(waitUntil([&] { return focusedNode()[u"type"_s] == u"workspace"_s; }));
}

TEST_F(LayerOnSwayTest, hidesAndComesBackTenTimes) {
    const auto surface = showSurface(Qt::blue);
    for (int i = 0; i < 10; ++i) {
        surface->orderOut();
        ASSERT_TRUE(waitForPicture(plainImage(kSize, kBackground))) << i;
        surface->orderFront();
        ASSERT_TRUE(waitForPicture(plainImage(kSize, Qt::blue))) << i;
    }
    for (int i = 0; i < 10; ++i) {
        surface->orderOut();
        surface->orderFront();
    }
    EXPECT_TRUE(waitForPicture(plainImage(kSize, Qt::blue)));
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerOnSwayTest, staysWhenTheWorkspaceChanges) {
    const auto surface = showSurface(Qt::blue);
    ASSERT_TRUE(sway.tell(u"workspace 3"_s));
    EXPECT_TRUE(waitForPicture(plainImage(kSize, Qt::blue)));
    surface->orderOut();
    ASSERT_TRUE(sway.tell(u"workspace 1"_s));
    EXPECT_TRUE(waitForPicture(plainImage(kSize, kBackground)));
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerOnSwayTest, hasEveryPixelOfAScaledOutput) {
    for (const double scale : {2.0, 1.5, 1.25, 1.0}) {
        ASSERT_TRUE(sway.tell(u"output HEADLESS-1 scale %1"_s.arg(scale)));
        ASSERT_TRUE(waitUntil([&] {
            return std::abs(client->outputs->all().at(0).scale - scale) < 0.001;
        })) << scale;
        const auto surface = client->makeSurface();
        EXPECT_EQ(client->outputs->all().at(0).deviceFrame.size(), kSize);
        surface->show([](QImage &frame) {
            frame = lines(frame.size());
            return QRegion(frame.rect());
        });
        surface->orderFront();
        EXPECT_TRUE(waitForPicture(lines(kSize))) << scale;
    }
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerOnSwayTest, keepsItsPixelsWhenTheScaleChangesUnderIt) {
    const auto surface = showSurface(Qt::blue);
    for (const double scale : {2.0, 1.5, 1.0}) {
        ASSERT_TRUE(sway.tell(u"output HEADLESS-1 scale %1"_s.arg(scale)));
        ASSERT_TRUE(waitUntil(
            [&] { return std::abs(client->outputs->all().at(0).scale - scale) < 0.001; }));
        EXPECT_TRUE(waitForPicture(plainImage(kSize, Qt::blue))) << "before it is painted anew";
        surface->setScreen(client->outputs->all().at(0));
        fillSurface(*surface, Qt::green);
        EXPECT_TRUE(waitForPicture(plainImage(kSize, Qt::green)));
        fillSurface(*surface, Qt::blue);
        EXPECT_TRUE(waitForPicture(plainImage(kSize, Qt::blue)));
    }
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerOnSwayTest, followsTheResolutionAndTheRotation) {
    const auto surface = showSurface(Qt::blue);
    const auto follow = [&](const QString &command, QSize size) {
        ASSERT_TRUE(sway.tell(command));
        ASSERT_TRUE(
            waitUntil([&] { return client->outputs->all().at(0).deviceFrame.size() == size; }));
        surface->setScreen(client->outputs->all().at(0));
        fillSurface(*surface, Qt::green);
        EXPECT_TRUE(waitForPicture(plainImage(size, Qt::green)));
    };
    follow(u"output HEADLESS-1 mode --custom 800x600"_s, {800, 600});
    follow(u"output HEADLESS-1 transform 90"_s, {600, 800});
    follow(u"output HEADLESS-1 transform 180"_s, {800, 600});
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerOnSwayTest, coversAnOutputThatComes) {
    const auto first = showSurface(Qt::blue);
    ASSERT_TRUE(sway.tell(u"create_output"_s));
    ASSERT_TRUE(waitForScreens(2));
    ASSERT_TRUE(
        waitUntil([&] { return client->outputs->all().at(1).frame.size() == QSizeF(1280, 720); }));
    const auto second = showSurface(client->outputs->all().at(1), Qt::green);
    EXPECT_TRUE(waitForPicture(plainImage(kSize, Qt::green), u"HEADLESS-2"_s));
    EXPECT_TRUE(waitForPicture(plainImage(kSize, Qt::blue)));
    EXPECT_EQ(losses, 0);
}

TEST_F(LayerOnSwayTest, tellsOnceThatSwayIsGone) {
    const auto surface = showSurface(Qt::blue);
    sway.killCompositor();
    EXPECT_TRUE(waitUntil([&] { return losses == 1; }));
    fillSurface(*surface, Qt::green);
    surface->orderOut();
    QCoreApplication::processEvents();
    EXPECT_EQ(losses, 1);
}

} // namespace zeph
