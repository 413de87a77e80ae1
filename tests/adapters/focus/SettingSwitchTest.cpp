// SPDX-License-Identifier: MIT
// The adapter against the real settings library, its real place of storage and the schemas of the
// desktops.
#include "adapters/focus/SettingSwitch.h"

#include "adapters/focus/DconfSession.h"
#include "adapters/loop/QtRunLoop.h"
#include "adapters/loop/QtTaskExecutor.h"
#include "adapters/power/QuietestHold.h"
#include "base/Background.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QuietSetting gnome{u"org.gnome.desktop.notifications"_s, u"show-banners"_s, false};
const QuietSetting cinnamon{u"org.cinnamon.desktop.notifications"_s, u"display-notifications"_s,
                            false};
const QuietSetting mate{u"org.mate.NotificationDaemon"_s, u"do-not-disturb"_s, true};

class SettingOfADesktop : public testing::Test {
protected:
    static void SetUpTestSuite() { session = std::make_unique<DconfSession>(); }
    static void TearDownTestSuite() { session.reset(); }

    void open(const QuietSetting &setting) {
        quiet = std::make_unique<SettingSwitch>(setting, background, [this] { ++news; });
    }
    void finishTasks() {
        executor.runAll();
        loop.drain();
    }
    bool becomes(std::optional<bool> wanted) {
        return eventually([&] { return quiet->isQuiet() == wanted; });
    }
    static void set(const QuietSetting &setting, bool value) {
        session->set(setting.schema, setting.key, value);
    }

    static std::unique_ptr<DconfSession> session;
    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    const Background background = Background::over(executor, loop);
    std::unique_ptr<SettingSwitch> quiet;
    int news = 0;
};

std::unique_ptr<DconfSession> SettingOfADesktop::session;

TEST_F(SettingOfADesktop, isUnknownUntilItsTaskIsDone) {
    open(gnome);
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
    EXPECT_EQ(news, 0);
    executor.runAll();
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
    loop.drain();
    EXPECT_TRUE(quiet->isQuiet().has_value());
    EXPECT_EQ(news, 1);
}

TEST_F(SettingOfADesktop, isOffByDefaultAndFollowedThroughTheDesktopsOwnSchema) {
    for (const QuietSetting &setting : {gnome, cinnamon, mate}) {
        SCOPED_TRACE(setting.schema.toStdString());
        open(setting);
        finishTasks();
        EXPECT_EQ(quiet->isQuiet(), false) << "nobody starts with do-not-disturb";
        set(setting, setting.quietValue);
        EXPECT_TRUE(becomes(true));
        set(setting, !setting.quietValue);
        EXPECT_TRUE(becomes(false));
        set(setting, setting.quietValue);
        EXPECT_TRUE(becomes(true));
        session->reset(setting.schema, setting.key);
        EXPECT_TRUE(becomes(false));
    }
}

TEST_F(SettingOfADesktop, isReadWhenItIsSetAlready) {
    set(gnome, false);
    open(gnome);
    finishTasks();
    EXPECT_EQ(quiet->isQuiet(), true);
    session->reset(gnome.schema, gnome.key);
    EXPECT_TRUE(becomes(false));
}

TEST_F(SettingOfADesktop, isUnknownWhereTheSchemaIsNotInstalled) {
    open({u"org.example.missing"_s, u"quiet"_s, true});
    finishTasks();
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
    EXPECT_EQ(news, 0);
}

TEST_F(SettingOfADesktop, isUnknownWithoutTheLibrary) {
    const SettingSwitch without(
        gnome, background, [this] { ++news; }, [] { return nullptr; });
    finishTasks();
    EXPECT_EQ(without.isQuiet(), std::nullopt);
    EXPECT_EQ(news, 0);
}

TEST_F(SettingOfADesktop, isUnknownWhenTheSchemaHasNoSuchKey) {
    open({gnome.schema, u"quiet"_s, true});
    finishTasks();
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
}

TEST_F(SettingOfADesktop, isUnknownWhenTheKeyIsNoBoolean) {
    open({u"com.tavi.Test"_s, u"text"_s, true});
    finishTasks();
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
}

TEST_F(SettingOfADesktop, isUnknownWhenTheSchemaHasNoPlaceOfItsOwn) {
    open({u"com.tavi.Test.Placeless"_s, u"quiet"_s, true});
    finishTasks();
    EXPECT_EQ(quiet->isQuiet(), std::nullopt);
}

TEST_F(SettingOfADesktop, mayEndBeforeItsTask) {
    open(gnome);
    quiet.reset();
    finishTasks();
    EXPECT_EQ(news, 0);
}

TEST_F(SettingOfADesktop, doesNotHoldTheMainThread) {
    QtRunLoop mainLoop;
    QtTaskExecutor threads(2);
    const Background real = Background::over(threads, mainLoop);
    const double hold = quietestHoldMs([&](const MainThreadWatch &watch) {
        const SettingSwitch followed(gnome, real, [] {});
        EXPECT_TRUE(eventually([&] { return followed.isQuiet() == false && watch.beats() > 20; }));
    });
    RecordProperty("hold", std::to_string(hold));
    EXPECT_LT(hold, 5);
}

// Last of all, since the library keeps its bus for the life of the process.
TEST_F(SettingOfADesktop, outlivesTheBus) {
    open(gnome);
    finishTasks();
    ASSERT_EQ(quiet->isQuiet(), false);
    GDBusConnection *const connection = DconfSession::sharedConnection();
    ASSERT_NE(connection, nullptr);
    ASSERT_TRUE(eventually([&] { return !g_dbus_connection_get_exit_on_close(connection); }));
    session->stopBus();
    EXPECT_TRUE(eventually([&] { return g_dbus_connection_is_closed(connection); }));
    EXPECT_EQ(quiet->isQuiet(), false);
}

} // namespace

} // namespace zeph
