// SPDX-License-Identifier: MIT
#include "FakeDisplayConfig.h"

#include "adapters/session/gnome/MutterScales.h"

#include <limits>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QRect kLaptop(0, 0, 2560, 1600);
const QRect kDesk(2560, 0, 1920, 1080);

} // namespace

class MutterScalesTest : public testing::Test {
protected:
    void start() {
        scales.emplace(ours.bus());
        changes = scales->subscribe([this] { ++calls; });
    }

    /// The shell runs, and a laptop's own display has another scale than the one beside it.
    void startBesideTwoMonitors() {
        shell.parts = {{{0, 0}, 2, {{u"eDP-1"_s}}}, {{2560, 0}, 1, {{u"HDMI-1"_s}}}};
        shell.appear();
        start();
        ASSERT_TRUE(eventually([&] { return calls == 1; }));
    }

    std::optional<double> scaleOf(const QString &connector, const QRect &geometry) const {
        return scales->scaleOf(connector, geometry);
    }

    /// Until the shell was asked, and anything that it answered has come.
    void settle(int questions) {
        ASSERT_TRUE(eventually([&] { return shell.questions == questions; }));
        eventually([] { return false; }, 50);
    }

    PrivateBus bus;
    BusConnection ours{bus.address()};
    FakeDisplayConfig shell{bus.address()};
    std::optional<MutterScales> scales;
    Subscription changes;
    int calls = 0;
};

TEST_F(MutterScalesTest, areThoseOfTheConnectors) {
    startBesideTwoMonitors();
    EXPECT_EQ(scaleOf(u"eDP-1"_s, {}), 2);
    EXPECT_EQ(scaleOf(u"HDMI-1"_s, {}), 1);
    EXPECT_EQ(scaleOf(u"HDMI-1"_s, kLaptop), 1) << "its name goes before its place";
}

TEST_F(MutterScalesTest, areThoseOfThePlacesWhereTheServerNamesConnectorsItself) {
    startBesideTwoMonitors();
    EXPECT_EQ(scaleOf(u"XWAYLAND0"_s, kLaptop), 2);
    EXPECT_EQ(scaleOf(u"XWAYLAND1"_s, kDesk), 1);
    EXPECT_EQ(scaleOf(u"XWAYLAND2"_s, {4480, 0, 800, 600}), std::nullopt);
}

TEST_F(MutterScalesTest, ofMirrorsAreOne) {
    shell.parts = {{{0, 0}, 1.5, {{u"eDP-1"_s}, {u"HDMI-1"_s}}}};
    shell.appear();
    start();
    ASSERT_TRUE(eventually([&] { return calls == 1; }));
    EXPECT_EQ(scaleOf(u"eDP-1"_s, kLaptop), 1.5);
    EXPECT_EQ(scaleOf(u"HDMI-1"_s, kLaptop), 1.5);
}

TEST_F(MutterScalesTest, areOneWhereTheCompositorEnlargesXWindows) {
    shell.parts = {{{0, 0}, 1.5, {{u"eDP-1"_s}}}};
    shell.properties[u"layout-mode"_s] = 1U;
    shell.appear();
    start();
    ASSERT_TRUE(eventually([&] { return calls == 1; }));
    EXPECT_EQ(scaleOf(u"eDP-1"_s, {0, 0, 1706, 1066}), 1);
    EXPECT_EQ(scaleOf(u"XWAYLAND1"_s, kDesk), 1);
}

TEST_F(MutterScalesTest, areAskedAnewWhenTheMonitorsChanged) {
    startBesideTwoMonitors();
    shell.parts[1].scale = 2;
    shell.tellOfChange();
    EXPECT_TRUE(eventually([&] { return calls == 2; }));
    EXPECT_EQ(scaleOf(u"HDMI-1"_s, kDesk), 2);
    shell.tellOfChange();
    settle(3);
    EXPECT_EQ(calls, 2) << "nothing was another one";
}

TEST_F(MutterScalesTest, areUnknownWhereNobodyTellsThem) {
    start();
    eventually([] { return false; }, 50);
    EXPECT_EQ(scaleOf(u"eDP-1"_s, kLaptop), std::nullopt);
    EXPECT_EQ(calls, 0);
}

TEST_F(MutterScalesTest, comeAndGoWithTheShell) {
    start();
    shell.parts = {{{0, 0}, 2, {{u"eDP-1"_s}}}};
    shell.appear();
    EXPECT_TRUE(eventually([&] { return scaleOf(u"eDP-1"_s, kLaptop) == 2; }));
    shell.vanish();
    EXPECT_TRUE(eventually([&] { return scaleOf(u"eDP-1"_s, kLaptop) == std::nullopt; }));
    EXPECT_EQ(calls, 2);
}

TEST_F(MutterScalesTest, stayAsTheyWereToldWhileTheShellRefuses) {
    startBesideTwoMonitors();
    shell.refuses = true;
    shell.tellOfChange();
    settle(2);
    EXPECT_EQ(scaleOf(u"eDP-1"_s, kLaptop), 2);
    EXPECT_EQ(calls, 1);
}

TEST_F(MutterScalesTest, areNotMadeOfAnswersOfAnotherForm) {
    shell.parts = {{{0, 0}, 2, {{u"eDP-1"_s}}}};
    shell.appear();
    shell.oddAnswer = QVariantList{};
    start();
    settle(1);
    const QList<QVariantList> others{
        {4U}, {u"nonsense"_s}, {4U, QStringList{u"eDP-1"_s}, QVariantMap(), QVariantMap()}};
    int questions = 1;
    for (const QVariantList &other : others) {
        shell.oddAnswer = other;
        shell.tellOfChange();
        settle(++questions);
        EXPECT_EQ(scaleOf(u"eDP-1"_s, kLaptop), std::nullopt);
    }
    EXPECT_EQ(calls, 0);
}

TEST_F(MutterScalesTest, areUnknownInALayoutThatIsUnknown) {
    shell.parts = {{{0, 0}, 2, {{u"eDP-1"_s}}}};
    shell.properties.clear();
    shell.appear();
    start();
    settle(1);
    int questions = 1;
    for (const QVariant &mode : {QVariant(0U), QVariant(3U), QVariant(u"physical"_s)}) {
        shell.properties[u"layout-mode"_s] = mode;
        shell.tellOfChange();
        settle(++questions);
        EXPECT_EQ(scaleOf(u"eDP-1"_s, kLaptop), std::nullopt);
    }
}

TEST_F(MutterScalesTest, areNotThoseThatNoDesktopHas) {
    using Limits = std::numeric_limits<double>;
    for (const double wild :
         {0.0, -1.0, 0.1, 17.0, 1e300, Limits::infinity(), Limits::quiet_NaN()}) {
        shell.parts.append({{0, 0}, wild, {{u"eDP-1"_s}}});
    }
    shell.parts.append({{2560, 0}, 1, {{u"HDMI-1"_s}}});
    shell.appear();
    start();
    ASSERT_TRUE(eventually([&] { return calls == 1; }));
    EXPECT_EQ(scaleOf(u"eDP-1"_s, kLaptop), std::nullopt);
    EXPECT_EQ(scaleOf(u"HDMI-1"_s, kDesk), 1);
}

TEST_F(MutterScalesTest, aSignalOfAnotherProgramAsksNothing) {
    startBesideTwoMonitors();
    BusConnection stranger(bus.address());
    stranger.bus().send(QDBusMessage::createSignal(u"/org/gnome/Mutter/DisplayConfig"_s,
                                                   u"org.gnome.Mutter.DisplayConfig"_s,
                                                   u"MonitorsChanged"_s));
    eventually([] { return false; }, 50);
    EXPECT_EQ(shell.questions, 1);
}

} // namespace zeph
