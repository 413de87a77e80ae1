// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11VirtualDesktops.h"

#include "X11Fixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Workspaces that another client writes down, as a window manager does.
class VirtualDesktopsTest : public X11Test {
protected:
    void write(const QByteArray &property, std::uint32_t value) {
        client->setNumbers(client->root(), property, {value});
    }
    void writeNames(const QString &names) {
        // Separated by zeros, which no argument can hold.
        client->setText(client->root(), "_NET_DESKTOP_NAMES",
                        QString(names).replace(u',', QChar(0)).toUtf8());
    }

    /// Whether the workspaces come to be those names with that current one.
    static bool becomes(const X11VirtualDesktops &desktops, std::optional<quint64> current,
                        const QStringList &names) {
        return waitUntil([&] {
            const auto displays = desktops.managedDisplays();
            if (displays.size() != 1) {
                return false;
            }
            QStringList found;
            for (const ManagedSpace &space : displays.front().spaces) {
                EXPECT_EQ(space.id, static_cast<quint64>(found.size()));
                EXPECT_TRUE(space.isRegular);
                found.append(space.name);
            }
            return found == names && displays.front().currentSpace == current;
        });
    }
};

class OpenboxDesktopsTest : public X11OpenboxTest {};

} // namespace

TEST_F(VirtualDesktopsTest, areNoneWithoutAWindowManager) {
    X11VirtualDesktops desktops(*connection);
    int changes = 0;
    const Subscription counting = desktops.subscribe([&] { ++changes; });
    connection->waitForReplies();
    EXPECT_TRUE(desktops.managedDisplays().empty());
    EXPECT_EQ(changes, 0);
}

TEST_F(VirtualDesktopsTest, areWhatIsWrittenOnTheRoot) {
    write("_NET_NUMBER_OF_DESKTOPS", 2);
    write("_NET_CURRENT_DESKTOP", 1);
    writeNames(u"Büro,Zuhause"_s);
    const X11VirtualDesktops desktops(*connection);
    EXPECT_TRUE(becomes(desktops, 1, {u"Büro"_s, u"Zuhause"_s}));
}

TEST_F(VirtualDesktopsTest, haveNoNameBeyondThoseThatAreGiven) {
    write("_NET_NUMBER_OF_DESKTOPS", 3);
    write("_NET_CURRENT_DESKTOP", 0);
    writeNames(u"One,,"_s);
    const X11VirtualDesktops desktops(*connection);
    EXPECT_TRUE(becomes(desktops, 0, {u"One"_s, {}, {}}));
}

TEST_F(VirtualDesktopsTest, areNoMoreThanTheirNumberWhateverTheNames) {
    write("_NET_NUMBER_OF_DESKTOPS", 1);
    writeNames(u"One,Two,Three"_s);
    const X11VirtualDesktops desktops(*connection);
    EXPECT_TRUE(becomes(desktops, 0, {u"One"_s}));
}

TEST_F(VirtualDesktopsTest, startAtTheFirstWhereNoneWasToldYet) {
    write("_NET_NUMBER_OF_DESKTOPS", 2);
    const X11VirtualDesktops desktops(*connection);
    EXPECT_TRUE(becomes(desktops, 0, {{}, {}}));
}

TEST_F(VirtualDesktopsTest, haveNoCurrentOneBeyondTheirNumber) {
    write("_NET_NUMBER_OF_DESKTOPS", 2);
    write("_NET_CURRENT_DESKTOP", 2);
    const X11VirtualDesktops desktops(*connection);
    EXPECT_TRUE(becomes(desktops, std::nullopt, {{}, {}}));
}

TEST_F(VirtualDesktopsTest, areNotBelievedBeyondAnyNumberThatMakesSense) {
    write("_NET_NUMBER_OF_DESKTOPS", 0xFFFFFFFF);
    const X11VirtualDesktops desktops(*connection);
    EXPECT_TRUE(becomes(desktops, 0, QStringList(256)));
}

TEST_F(VirtualDesktopsTest, tellOnceOfEachChange) {
    write("_NET_NUMBER_OF_DESKTOPS", 2);
    write("_NET_CURRENT_DESKTOP", 0);
    X11VirtualDesktops desktops(*connection);
    ASSERT_TRUE(becomes(desktops, 0, {{}, {}}));
    int changes = 0;
    const Subscription counting = desktops.subscribe([&] { ++changes; });
    write("_NET_CURRENT_DESKTOP", 1);
    ASSERT_TRUE(becomes(desktops, 1, {{}, {}}));
    write("_NET_CURRENT_DESKTOP", 1);
    write("_NET_CURRENT_DESKTOP", 0);
    ASSERT_TRUE(becomes(desktops, 0, {{}, {}}));
    EXPECT_EQ(changes, 2);
}

TEST_F(OpenboxDesktopsTest, areFollowedWhileTheyComeAndGo) {
    X11VirtualDesktops desktops(*connection);
    const auto becomes = [&](std::size_t count, quint64 current) {
        return waitUntil([&] {
            const auto displays = desktops.managedDisplays();
            return displays.size() == 1 && displays.front().spaces.size() == count &&
                   displays.front().currentSpace == current;
        });
    };
    session.run({u"wmctrl"_s, u"-n"_s, u"2"_s});
    ASSERT_TRUE(becomes(2, 0));
    EXPECT_FALSE(desktops.managedDisplays().front().spaces.front().name.isEmpty());
    session.run({u"wmctrl"_s, u"-n"_s, u"3"_s});
    ASSERT_TRUE(becomes(3, 0));
    session.run({u"wmctrl"_s, u"-s"_s, u"2"_s});
    EXPECT_TRUE(becomes(3, 2));
    session.run({u"wmctrl"_s, u"-n"_s, u"1"_s});
    EXPECT_TRUE(becomes(1, 0));
}

} // namespace zeph
