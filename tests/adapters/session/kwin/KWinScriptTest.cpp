// SPDX-License-Identifier: MIT
#include "KWinFixture.h"

using namespace Qt::StringLiterals;

namespace zeph {

class KWinScriptTest : public PlayedKWinTest {
protected:
    void openAndListen() {
        open();
        fronts = script->subscribeToFront(
            [this](const std::optional<KWinWindow> &window) { seen.push_back(window); });
        panels = script->subscribeToPanels([this] { ++panelChanges; });
    }

    std::vector<std::optional<KWinWindow>> seen;
    int panelChanges = 0;
    Subscription fronts;
    Subscription panels;
};

TEST_F(KWinScriptTest, liesWhereKWinFindsItUnderTheSamePath) {
    const QString runtime = folder.path();
    EXPECT_EQ(kwinScriptFolder(runtime, {}), runtime);
    EXPECT_EQ(kwinScriptFolder(runtime, u"org.example.Tavi"_s), runtime) << "no folder of its own";
    ASSERT_TRUE(QDir(runtime).mkpath(u"app/org.example.Tavi"_s));
    EXPECT_EQ(kwinScriptFolder(runtime, u"org.example.Tavi"_s),
              runtime + u"/app/org.example.Tavi"_s);
    EXPECT_EQ(kwinScriptFolder({}, u"org.example.Tavi"_s), QString());
}

TEST_F(KWinScriptTest, isLoadedAndStarted) {
    kwin.appear();
    open();
    EXPECT_EQ(kwin.scripts.count(scriptName()), 1U);
    EXPECT_EQ(kwin.runs, QStringList{u"/17"_s});
    EXPECT_EQ(kwin.ourName(), ours.bus().baseService());
}

TEST_F(KWinScriptTest, isStartedWhereKWin6HasItsScripts) {
    kwin.scriptPath = u"/Scripting/Script"_s;
    kwin.appear();
    open();
    EXPECT_EQ(kwin.runs, QStringList{u"/Scripting/Script17"_s});
}

TEST_F(KWinScriptTest, replacesTheOneThatACrashLeft) {
    kwin.scripts[scriptName()] = 3;
    kwin.appear();
    open();
    EXPECT_EQ(kwin.scripts[scriptName()], 17);
}

TEST_F(KWinScriptTest, isTakenOutAtTheEnd) {
    kwin.appear();
    open();
    script.reset();
    EXPECT_TRUE(eventually([&] { return kwin.scripts.empty(); }));
}

TEST_F(KWinScriptTest, tellsOfTheActiveWindow) {
    kwin.appear();
    openAndListen();
    kwin.tellFront(u"org.kde.kate"_s, u"org.kde.kate"_s, 42);
    kwin.tellFront({}, {}, 0);
    ASSERT_TRUE(eventually([&] { return seen.size() == 2; }));
    EXPECT_EQ(seen[0], (KWinWindow{u"org.kde.kate"_s, u"org.kde.kate"_s, 42}));
    EXPECT_EQ(seen[1], std::nullopt);
}

TEST_F(KWinScriptTest, tellsThatPanelsChanged) {
    kwin.appear();
    openAndListen();
    kwin.tellPanels();
    EXPECT_TRUE(eventually([&] { return panelChanges == 1; }));
}

TEST_F(KWinScriptTest, believesNobodyButKWin) {
    kwin.appear();
    openAndListen();
    BusConnection stranger(bus.address());
    kwin.callFrom(stranger.bus(), u"Front"_s, {u"evil"_s, u"evil"_s, 1});
    kwin.callFrom(stranger.bus(), u"Panels"_s, {});
    kwin.tellFront(u"good"_s, {}, 2);
    ASSERT_TRUE(eventually([&] { return !seen.empty(); }));
    // The bus keeps no order between two who speak.
    eventually([&] { return seen.size() > 1 || panelChanges > 0; }, 100);
    EXPECT_EQ(seen, std::vector<std::optional<KWinWindow>>(1, KWinWindow{u"good"_s, {}, 2}));
    EXPECT_EQ(panelChanges, 0);
}

TEST_F(KWinScriptTest, takesNoOtherCall) {
    kwin.appear();
    openAndListen();
    kwin.call(u"Front"_s, {u"no process"_s});
    kwin.call(u"Somewhere"_s, {u"a"_s, u"b"_s, 1});
    kwin.tellFront(u"good"_s, {}, 2);
    ASSERT_TRUE(eventually([&] { return !seen.empty(); }));
    EXPECT_EQ(seen[0]->windowClass, u"good"_s);
}

TEST_F(KWinScriptTest, isLoadedAnewInAKWinThatIsStartedAnew) {
    kwin.appear();
    openAndListen();
    kwin.tellFront(u"one"_s, {}, 2);
    ASSERT_TRUE(eventually([&] { return seen.size() == 1; }));
    kwin.vanish();
    ASSERT_TRUE(eventually([&] { return seen.size() == 2; }));
    EXPECT_EQ(seen[1], std::nullopt);
    kwin.appear();
    open();
}

TEST_F(KWinScriptTest, leavesNoFileBehind) {
    kwin.appear();
    open();
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files).size(), 1);
    script.reset();
    EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

} // namespace zeph
