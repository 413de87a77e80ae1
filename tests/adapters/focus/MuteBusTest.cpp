// SPDX-License-Identifier: MIT
#include "adapters/focus/SettingSwitch.h"
#include "base/Background.h"

#include "adapters/bus/PrivateBus.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/loop/QtTaskExecutor.h"
#include "adapters/power/QuietestHold.h"
#include "base/Background.h"
#include "support/Environment.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// A bus that takes connections and never says a word.
class MuteBus {
public:
    MuteBus() : m_socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        const QByteArray path = QFile::encodeName(m_folder.filePath(u"bus"_s));
        std::copy(path.begin(), path.end(), &address.sun_path[0]);
        EXPECT_EQ(::bind(m_socket, reinterpret_cast<const sockaddr *>(&address), sizeof(address)),
                  0);
        EXPECT_EQ(::listen(m_socket, 8), 0);
    }
    ~MuteBus() { ::close(m_socket); }
    MuteBus(const MuteBus &) = delete;
    MuteBus &operator=(const MuteBus &) = delete;

    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
    int m_socket;
};

TEST(SettingWithAMuteBus, isReadAllTheSameWithoutHoldingTheMainThread) {
    const MuteBus bus;
    const QByteArray folder = QFile::encodeName(bus.folder());
    const ScopedVariable address("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + folder + "/bus");
    const ScopedVariable home("HOME", folder);
    const ScopedVariable config("XDG_CONFIG_HOME", folder);
    const ScopedVariable runtime("XDG_RUNTIME_DIR", folder);
    QtRunLoop loop;
    QtTaskExecutor threads(2);
    const Background background = Background::over(threads, loop);
    const double hold = quietestHoldMs([&](const MainThreadWatch &watch) {
        const SettingSwitch quiet({u"org.gnome.desktop.notifications"_s, u"show-banners"_s, false},
                                  background, [] {});
        EXPECT_TRUE(eventually([&] { return quiet.isQuiet() == false && watch.beats() > 50; }));
    });
    RecordProperty("hold", std::to_string(hold));
    EXPECT_LT(hold, 5);
}

} // namespace

} // namespace zeph
