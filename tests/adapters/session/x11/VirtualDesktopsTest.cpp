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

    bool becomes(const X11VirtualDesktops &desktops, const std::vector<VirtualDesktop> &wanted) {
        return waitUntil([&] { return desktops.all() == wanted; });
    }
};

class OpenboxDesktopsTest : public X11OpenboxTest {};

} // namespace

TEST_F(VirtualDesktopsTest, areNoneWithoutAWindowManager) {
    X11VirtualDesktops desktops(*connection);
    int changes = 0;
    const Subscription counting = desktops.subscribe([&] { ++changes; });
    connection->waitForReplies();
    EXPECT_TRUE(desktops.all().empty());
    EXPECT_EQ(changes, 0);
}

TEST_F(VirtualDesktopsTest, areWhatIsWrittenOnTheRoot) {
    write("_NET_NUMBER_OF_DESKTOPS", 2);
    write("_NET_CURRENT_DESKTOP", 1);
    writeNames(u"Büro,Zuhause"_s);
    const X11VirtualDesktops desktops(*connection);
    EXPECT_TRUE(becomes(desktops, {{1, u"Büro"_s, false}, {2, u"Zuhause"_s, true}}));
}

TEST_F(VirtualDesktopsTest, haveNoNameBeyondThoseThatAreGiven) {
    write("_NET_NUMBER_OF_DESKTOPS", 3);
    write("_NET_CURRENT_DESKTOP", 0);
    writeNames(u"One,,"_s);
    const X11VirtualDesktops desktops(*connection);
    EXPECT_TRUE(becomes(desktops, {{1, u"One"_s, true}, {2, {}, false}, {3, {}, false}}));
}

TEST_F(VirtualDesktopsTest, areNoMoreThanTheirNumberWhateverTheNames) {
    write("_NET_NUMBER_OF_DESKTOPS", 1);
    writeNames(u"One,Two,Three"_s);
    const X11VirtualDesktops desktops(*connection);
    EXPECT_TRUE(becomes(desktops, {{1, u"One"_s, false}})) << "none is current until one is told";
}

TEST_F(VirtualDesktopsTest, areNotBelievedBeyondAnyNumberThatMakesSense) {
    write("_NET_NUMBER_OF_DESKTOPS", 0xFFFFFFFF);
    const X11VirtualDesktops desktops(*connection);
    EXPECT_TRUE(waitUntil([&] { return desktops.all().size() == 256; }));
}

TEST_F(VirtualDesktopsTest, tellOnceOfEachChange) {
    write("_NET_NUMBER_OF_DESKTOPS", 2);
    write("_NET_CURRENT_DESKTOP", 0);
    X11VirtualDesktops desktops(*connection);
    ASSERT_TRUE(becomes(desktops, {{1, {}, true}, {2, {}, false}}));
    int changes = 0;
    const Subscription counting = desktops.subscribe([&] { ++changes; });
    write("_NET_CURRENT_DESKTOP", 1);
    ASSERT_TRUE(becomes(desktops, {{1, {}, false}, {2, {}, true}}));
    write("_NET_CURRENT_DESKTOP", 1);
    write("_NET_CURRENT_DESKTOP", 0);
    ASSERT_TRUE(becomes(desktops, {{1, {}, true}, {2, {}, false}}));
    EXPECT_EQ(changes, 2);
}

TEST_F(OpenboxDesktopsTest, areFollowedWhileTheyComeAndGo) {
    X11VirtualDesktops desktops(*connection);
    session.run({u"wmctrl"_s, u"-n"_s, u"2"_s});
    const auto counts = [&](std::size_t count) {
        return waitUntil([&] { return desktops.all().size() == count; });
    };
    ASSERT_TRUE(counts(2));
    EXPECT_TRUE(waitUntil([&] { return desktops.all().front().isCurrent; }));
    EXPECT_FALSE(desktops.all().front().name.isEmpty());
    session.run({u"wmctrl"_s, u"-n"_s, u"3"_s});
    ASSERT_TRUE(counts(3));
    session.run({u"wmctrl"_s, u"-s"_s, u"2"_s});
    EXPECT_TRUE(waitUntil([&] { return desktops.all().back().isCurrent; }));
    session.run({u"wmctrl"_s, u"-n"_s, u"1"_s});
    ASSERT_TRUE(counts(1));
    EXPECT_TRUE(waitUntil([&] { return desktops.all().front().isCurrent; }));
}

} // namespace zeph
