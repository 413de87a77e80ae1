// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandConnection.h"

#include "FakeCompositor.h"
#include "WaylandClient.h"

#include <QElapsedTimer>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr std::chrono::milliseconds kShortPatience{50};

struct WaylandConnectionTest : testing::Test {
    std::unique_ptr<WaylandConnection> open() {
        return WaylandConnection::open(compositor.socket()).connection;
    }

    FakeCompositor compositor;
};

} // namespace

TEST_F(WaylandConnectionTest, knowsWhatIsOfferedOnceItIsOpen) {
    const auto connection = open();
    ASSERT_TRUE(connection);
    const auto shell = connection->global(zwlr_layer_shell_v1_interface);
    ASSERT_TRUE(shell);
    EXPECT_EQ(shell->version, 4U);
    EXPECT_FALSE(connection->global(wp_viewporter_interface));
}

TEST_F(WaylandConnectionTest, saysThatThereIsNoCompositor) {
    for (const QByteArray &name :
         {QByteArray(), QByteArray("/nonexistent/display"), QByteArray("display-of-nobody"),
          QByteArray("/" + QByteArray(200, 'x'))}) {
        const auto opened = WaylandConnection::open(name);
        EXPECT_FALSE(opened.connection) << name.constData();
        EXPECT_EQ(opened.refusal, u"there is no Wayland compositor to draw on"_s);
    }
}

TEST_F(WaylandConnectionTest, doesNotWaitForeverForACompositorThatHangs) {
    compositor.thread().freeze();
    const auto opened = WaylandConnection::open(compositor.socket(), kShortPatience);
    EXPECT_FALSE(opened.connection);
    EXPECT_EQ(opened.refusal, u"the Wayland compositor does not answer"_s);
}

TEST_F(WaylandConnectionTest, doesNotWaitForACompositorThatTakesNoConnections) {
    const QTemporaryDir folder;
    const QByteArray path = folder.filePath(u"full"_s).toLocal8Bit();
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::copy(path.begin(), path.end(), std::begin(address.sun_path));
    const int listening = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(bind(listening, reinterpret_cast<sockaddr *>(&address), sizeof address), 0);
    ASSERT_EQ(listen(listening, 0), 0);
    // Those that wait are never taken.
    const auto first = WaylandConnection::open(path, kShortPatience);
    const int second = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
    while (connect(second, reinterpret_cast<sockaddr *>(&address), sizeof address) == 0) {
    }
    EXPECT_FALSE(WaylandConnection::open(path, kShortPatience).connection);
    close(second);
    close(listening);
}

TEST_F(WaylandConnectionTest, tellsOfGlobalsThatComeAndGoTogetherOnce) {
    const auto connection = open();
    int changes = 0;
    const Subscription subscription = connection->subscribeToGlobals([&] { ++changes; });
    const auto before = connection->globals().size();
    compositor.thread().run([this](wl_display *) {});
    compositor.addOutput({.name = "DP-2"});
    ASSERT_TRUE(waitUntil([&] { return changes > 0; }));
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(connection->globals().size(), before + 1);
    compositor.removeOutput("DP-2");
    ASSERT_TRUE(waitUntil([&] { return changes > 1; }));
    EXPECT_EQ(connection->globals().size(), before);
}

TEST_F(WaylandConnectionTest, tellsOfItsLossOnce) {
    const auto connection = open();
    int losses = 0;
    const Subscription subscription = connection->subscribeToLoss([&] { ++losses; });
    compositor.thread().end();
    ASSERT_TRUE(waitUntil([&] { return losses > 0; }));
    for (int i = 0; i < 10; ++i) {
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(losses, 1);
    EXPECT_FALSE(connection->waitForAnswers(kShortPatience));
}

TEST_F(WaylandConnectionTest, tellsOfItsLossAlsoWhenItSpeaksFirst) {
    const auto connection = open();
    int losses = 0;
    const Subscription subscription = connection->subscribeToLoss([&] { ++losses; });
    compositor.thread().end();
    const auto memory = connection->bindFirst<wl_shm>(wl_shm_interface, 1);
    EXPECT_TRUE(waitUntil([&] { return losses == 1; }));
}

TEST_F(WaylandConnectionTest, keepsWhatACompositorThatHangsDoesNotTakeAndSaysItLater) {
    const auto connection = open();
    const auto compositorObject = connection->bindFirst<wl_compositor>(wl_compositor_interface, 4);
    connection->waitForAnswers();
    compositor.thread().freeze();
    int losses = 0;
    const Subscription subscription = connection->subscribeToLoss([&] { ++losses; });
    // More than the socket takes, and less than the library keeps.
    std::vector<WaylandHandle<wl_region>> regions;
    while (wl_display_flush(connection->display()) >= 0) {
        regions.emplace_back(wl_compositor_create_region(compositorObject.get()));
    }
    ASSERT_EQ(errno, EAGAIN);
    QCoreApplication::processEvents();
    compositor.thread().thaw();
    bool isAnswered = false;
    EXPECT_TRUE(waitUntil([&] {
        isAnswered = isAnswered || connection->waitForAnswers(kShortPatience);
        return isAnswered;
    }));
    EXPECT_EQ(losses, 0);
}

} // namespace zeph
