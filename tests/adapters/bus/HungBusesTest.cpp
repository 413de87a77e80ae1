// SPDX-License-Identifier: MIT
#include "adapters/bus/HungBuses.h"

#include "adapters/bus/PrivateBus.h"

#include <QElapsedTimer>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

constexpr std::chrono::milliseconds longPatience{10'000};
constexpr std::chrono::milliseconds shortPatience{100};

TEST(HungBuses, areThoseThatTakeAConnectionAndSayNothing) {
    PrivateBus hung;
    const PrivateBus well;
    hung.freeze();
    const auto found =
        findHungBuses({hung.address().toUtf8(), well.address().toUtf8()}, shortPatience);
    EXPECT_EQ(found, (std::vector{true, false}));
    hung.thaw();
    EXPECT_EQ(findHungBuses({hung.address().toUtf8()}, longPatience), std::vector{false});
}

TEST(HungBuses, areThoseThatTakeNoMoreConnections) {
    PrivateBus hung;
    hung.freeze();
    const QByteArray path = hung.address().section(u"path="_s, 1).section(u',', 0, 0).toUtf8();
    sockaddr_un target{};
    target.sun_family = AF_UNIX;
    std::memcpy(target.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    std::vector<int> sockets;
    int outcome = 0;
    while (outcome == 0 && sockets.size() < 10'000) {
        sockets.push_back(::socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0));
        outcome =
            ::connect(sockets.back(), reinterpret_cast<const sockaddr *>(&target), sizeof target);
    }
    ASSERT_EQ(errno, EAGAIN);
    EXPECT_EQ(findHungBuses({hung.address().toUtf8()}, shortPatience), std::vector{true});
    for (const int socket : sockets) {
        ::close(socket);
    }
}

TEST(HungBuses, areNotWaitedForWhenTheyAnswerOrAreGone) {
    const PrivateBus well;
    PrivateBus gone;
    gone.stop();
    QElapsedTimer taken;
    taken.start();
    EXPECT_EQ(findHungBuses({well.address().toUtf8(), gone.address().toUtf8(),
                             "unix:path=/nonexistent/bus", "tcp:host=localhost,port=1", "",
                             "unix:path=" + QByteArray(500, 'x')},
                            longPatience),
              std::vector<bool>(6, false));
    EXPECT_LT(taken.elapsed(), 5'000);
}

TEST(HungBuses, areLeftOut) {
    const QByteArray session = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    const QByteArray system = qgetenv("DBUS_SYSTEM_BUS_ADDRESS");
    PrivateBus hung;
    const PrivateBus well;
    hung.freeze();
    qputenv("DBUS_SESSION_BUS_ADDRESS", hung.address().toUtf8());
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", well.address().toUtf8());
    avoidHungBuses(shortPatience);
    const QByteArray instead = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    EXPECT_EQ(qgetenv("DBUS_SYSTEM_BUS_ADDRESS"), well.address().toUtf8());
    EXPECT_FALSE(BusConnection(QString::fromUtf8(instead)).bus().isConnected());
    qputenv("DBUS_SESSION_BUS_ADDRESS", session);
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", system);
}

} // namespace

} // namespace zeph
