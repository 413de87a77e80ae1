// SPDX-License-Identifier: MIT
#include "TaviFixture.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QDBusVirtualObject>
#include <QElapsedTimer>

#include <csignal>

using namespace Qt::StringLiterals;

namespace zeph {

using StartTest = TaviTest;

namespace {

const QString kNoDisplay = u"tavi: there is no X display to draw on\n"_s;
const QString kService = u"com.tavi.Tavi"_s;

/// Refuses every call.
class RefusingObject : public QDBusVirtualObject {
public:
    QString introspect(const QString &) const override { return {}; }
    bool handleMessage(const QDBusMessage &, const QDBusConnection &) override {
        ++calls;
        return false;
    }

    int calls = 0;
};

} // namespace

TEST_F(StartTest, endsAtOnceWhereTheProgramRunsAlready) {
    startWindowManager();
    const Program first(environment());
    ASSERT_TRUE(waitForWallpaper());
    BusConnection watcher(bus.address());
    const auto owner = [&] {
        return QDBusReply<uint>(watcher.bus().interface()->servicePid(kService)).value();
    };
    // A busy bus may say later whose the name is than the wallpaper is there.
    ASSERT_TRUE(waitUntil([&] { return owner() == first.process(); }, kPatience)) << owner();
    Program second(environment());
    EXPECT_TRUE(second.endsWith(0, std::chrono::seconds(10))) << second.errors().toStdString();
    EXPECT_TRUE(first.isRunning());
    EXPECT_EQ(owner(), first.process());
    // One that is made anew is there before the one it takes the place of goes.
    EXPECT_TRUE(waitUntil([&] { return wallpaperCount() == 1; }, kPatience)) << wallpaperCount();
}

TEST_F(StartTest, takesThePlaceOfAProgramThatIsEnding) {
    startWindowManager();
    RefusingObject refusing;
    BusConnection ending(bus.address());
    ASSERT_TRUE(ending.bus().registerVirtualObject(u"/com/tavi/Tavi"_s, &refusing));
    ASSERT_TRUE(ending.bus().registerService(kService));
    Program tavi(environment());
    ASSERT_TRUE(waitUntil([&] { return refusing.calls > 0; }, kPatience));
    ASSERT_TRUE(ending.bus().unregisterService(kService));
    EXPECT_TRUE(waitForWallpaper());
    tavi.send(SIGTERM);
    EXPECT_TRUE(tavi.endsWith(0)) << tavi.errors().toStdString();
}

TEST_F(StartTest, needsNoBus) {
    startWindowManager();
    bus.stop();
    Program tavi(environment());
    ASSERT_TRUE(waitForWallpaper());
    tavi.send(SIGTERM);
    EXPECT_TRUE(tavi.endsWith(0)) << tavi.errors().toStdString();
}

TEST_F(StartTest, failsAtOnceWhereTheProgramRunsAndNoBusLeadsToIt) {
    startWindowManager();
    bus.stop();
    const Program first(environment());
    ASSERT_TRUE(waitForWallpaper());
    writeSettingsFile("damaged");
    Program second(environment());
    EXPECT_TRUE(second.endsWith(1, std::chrono::seconds(10))) << second.errors().toStdString();
    EXPECT_TRUE(second.output().isEmpty()) << second.output().toStdString();
    EXPECT_EQ(second.errors(),
              u"tavi: it runs already, and the session bus does not lead to it\n"_s);
    EXPECT_FALSE(QFile::exists(path("config/Zeph/defaults.json.damaged"))) << "nothing is written";
    EXPECT_TRUE(first.isRunning());
    EXPECT_EQ(client->findAll("Tavi").size(), 1);
}

TEST_F(StartTest, doesWithoutABusThatHangs) {
    startWindowManager();
    bus.freeze();
    Program tavi(environment());
    QElapsedTimer taken;
    taken.start();
    ASSERT_TRUE(waitForWallpaper());
    EXPECT_LT(taken.elapsed(), 15'000) << "every wait for the bus would take 25 s";
    tavi.send(SIGTERM);
    EXPECT_TRUE(tavi.endsWith(0)) << tavi.errors().toStdString();
}

TEST_F(StartTest, failsWithoutADisplay) {
    auto without = environment();
    without.remove(u"DISPLAY"_s);
    Program unset(without);
    EXPECT_TRUE(unset.endsWith(1));
    EXPECT_EQ(unset.errors(), kNoDisplay);

    session.killServer();
    Program gone(environment());
    EXPECT_TRUE(gone.endsWith(1));
    EXPECT_EQ(gone.errors(), kNoDisplay);
}

TEST_F(StartTest, goesOnWhereNothingCanBeSaved) {
    startWindowManager();
    QFile inTheWay(path("data/Zeph"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    Program tavi(environment());
    ASSERT_TRUE(waitForWallpaper());
    const QString line = u"[Zeph] failed to open db at "_s + databasePath() + u'\n';
    EXPECT_TRUE(tavi.output().contains(line)) << tavi.output().toStdString();
    tavi.send(SIGTERM);
    EXPECT_TRUE(tavi.endsWith(0)) << tavi.errors().toStdString();
}

TEST_F(StartTest, leavesTheUsersEnvironmentToTheProgramsThatItStarts) {
    startWindowManager();
    // The desktop's tool, which is run as soon as the wallpaper is there.
    const QByteArray told = QFile::encodeName(path("environment"));
    writeTool("gnome-extensions",
              "env >'" + told + ".new' && mv '" + told + ".new' '" + told + '\'');
    writeFile(path("data/gnome-shell/extensions/ding@rastersoft.com/metadata.json"), "{}");
    const QMap<QString, QString> ofTheUser{{u"QT_QPA_PLATFORM"_s, u"minimal"_s},
                                           {u"SESSION_MANAGER"_s, u"local/x:/nonexistent/x"_s}};
    auto variables = environment();
    variables.insert(u"PATH"_s, pathOfTools());
    variables.insert(u"XDG_CURRENT_DESKTOP"_s, u"GNOME"_s);
    for (auto one = ofTheUser.begin(); one != ofTheUser.end(); ++one) {
        variables.insert(one.key(), one.value());
    }
    Program tavi(variables);
    ASSERT_TRUE(waitForWallpaper()) << "which is no matter of the user's choice";
    ASSERT_TRUE(waitUntil([&] { return QFile::exists(path("environment")); }, kPatience));
    QFile file(path("environment"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (auto one = ofTheUser.begin(); one != ofTheUser.end(); ++one) {
        EXPECT_TRUE(lines.contains(one.key() + u'=' + one.value())) << one.key().toStdString();
    }
    tavi.send(SIGTERM);
    EXPECT_TRUE(tavi.endsWith(0));
    EXPECT_EQ(tavi.errors(), QString()) << "no session manager was looked for";
}

TEST_F(StartTest, ignoresOptions) {
    startWindowManager();
    Program tavi(environment(), {u"--unheard-of"_s, u"-platform"_s, u"offscreen"_s});
    ASSERT_TRUE(waitForWallpaper());
    tavi.send(SIGTERM);
    EXPECT_TRUE(tavi.endsWith(0)) << tavi.errors().toStdString();
}

} // namespace zeph
