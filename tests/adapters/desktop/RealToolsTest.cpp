// SPDX-License-Identifier: MIT
// The icons by the desktops' own tools.
#include "adapters/bus/PrivateBus.h"
#include "adapters/desktop/SettingIcons.h"
#include "support/Environment.h"

#include <QDir>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// The system's tools in a home of the test's own; the programs that draw the icons are stand-ins.
class RealToolsTest : public testing::Test {
protected:
    RealToolsTest() {
        for (const auto *program : {"xfdesktop", "nemo-desktop", "caja"}) {
            QFile file(QFile::decodeName(folder("bin")) + u'/' + QLatin1String(program));
            EXPECT_TRUE(file.open(QFile::WriteOnly));
            file.write("#!/bin/sh\n");
            file.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
        }
    }

    QByteArray folder(const char *name) const {
        QDir(m_home.path()).mkpath(QString::fromLatin1(name));
        return QFile::encodeName(m_home.filePath(QString::fromLatin1(name)));
    }

    /// From shown over hidden back to shown, as it was.
    static void expectThereAndBack(SettingIcons &icons) {
        const auto earlier = icons.iconSetting();
        ASSERT_TRUE(earlier);
        EXPECT_TRUE(earlier->areShown);
        EXPECT_EQ(icons.hideIcons(), ShellOutcome::done);
        ASSERT_TRUE(icons.iconSetting());
        EXPECT_FALSE(icons.iconSetting()->areShown);
        EXPECT_EQ(icons.showIcons(earlier->value), ShellOutcome::done);
        EXPECT_EQ(icons.iconSetting(), earlier);
    }

private:
    QTemporaryDir m_home;
    ScopedVariable m_path{"PATH", folder("bin") + ":/usr/bin:/bin"};
    ScopedVariable m_homeFolder{"HOME", folder("home")};
    ScopedVariable m_config{"XDG_CONFIG_HOME", folder("config")};
};

/// Xfce's settings daemon on a bus of its own.
class RealXfconfIcons : public RealToolsTest {
protected:
    RealXfconfIcons() {
        endWithThisProcess(m_daemon);
        m_daemon.start(daemonPath(), {});
        EXPECT_TRUE(m_daemon.waitForStarted(10'000)) << "xfconfd is not installed";
        EXPECT_TRUE(
            eventually([this] { return SettingIcons(xfceIcons()).iconSetting().has_value(); }));
    }
    ~RealXfconfIcons() override {
        m_daemon.kill();
        m_daemon.waitForFinished(10'000);
    }

private:
    /// Where the distribution puts the daemon, in a folder named for the machine.
    static QString daemonPath() {
        const QDir libraries(u"/usr/lib"_s);
        for (const QString &machine : libraries.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
            const QString path = libraries.filePath(machine + u"/xfce4/xfconf/xfconfd"_s);
            if (QFile::exists(path)) {
                return path;
            }
        }
        return {};
    }

    PrivateBus m_bus;
    ScopedVariable m_address{"DBUS_SESSION_BUS_ADDRESS", m_bus.address().toUtf8()};
    QProcess m_daemon;
};

/// Settings in a file, with the schemas of two desktops.
class RealGsettingsIcons : public RealToolsTest {
protected:
    RealGsettingsIcons() {
        QFile file(QFile::decodeName(folder("schemas")) + u"/test.gschema.xml"_s);
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(R"(<schemalist>
            <schema id="org.nemo.desktop" path="/org/nemo/desktop/">
                <key name="desktop-layout" type="s"><default>'true::false'</default></key>
            </schema>
            <schema id="org.mate.background" path="/org/mate/desktop/background/">
                <key name="show-desktop-icons" type="b"><default>true</default></key>
            </schema>
            </schemalist>)");
        file.close();
        QProcess compiler;
        compiler.start(u"glib-compile-schemas"_s, {QFile::decodeName(folder("schemas"))});
        EXPECT_TRUE(compiler.waitForFinished(20'000) && compiler.exitCode() == 0);
    }

private:
    ScopedVariable m_schemas{"GSETTINGS_SCHEMA_DIR", folder("schemas")};
    ScopedVariable m_backend{"GSETTINGS_BACKEND", "keyfile"};
};

} // namespace

TEST_F(RealXfconfIcons, comeBackWithAndWithoutAChoice) {
    SettingIcons icons(xfceIcons());
    expectThereAndBack(icons);
    EXPECT_EQ(icons.iconSetting()->value, u"absent"_s);
    icons.hideIcons();
    EXPECT_EQ(icons.showIcons(u"1"_s), ShellOutcome::done);
    expectThereAndBack(icons);
    EXPECT_EQ(icons.iconSetting(), (IconSetting{true, u"1"_s}));
}

TEST_F(RealToolsTest, xfconfWithoutItsDaemonCannotBeReadThoughThereIsABus) {
    PrivateBus bus;
    const ScopedVariable address("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    SettingIcons icons(xfceIcons());
    EXPECT_EQ(icons.iconSetting(), std::nullopt) << "the tool says that the setting is not there";
    EXPECT_EQ(icons.hideIcons(), ShellOutcome::refused);
}

TEST_F(RealToolsTest, xfconfWithoutItsDaemonCannotBeRead) {
    const ScopedVariable address("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nonexistent");
    SettingIcons icons(xfceIcons());
    EXPECT_TRUE(icons.canHideIcons());
    EXPECT_EQ(icons.iconSetting(), std::nullopt);
    EXPECT_EQ(icons.hideIcons(), ShellOutcome::refused);
}

TEST_F(RealGsettingsIcons, comeBack) {
    SettingIcons nemo(cinnamonIcons());
    expectThereAndBack(nemo);
    nemo.hideIcons();
    EXPECT_EQ(nemo.showIcons(u"'true::true'"_s), ShellOutcome::done);
    expectThereAndBack(nemo);
    SettingIcons caja(mateIcons());
    expectThereAndBack(caja);
}

TEST_F(RealToolsTest, gsettingsWithoutTheSchemaCannotBeRead) {
    const ScopedVariable schemas("GSETTINGS_SCHEMA_DIR", folder("none"));
    const ScopedVariable data("XDG_DATA_DIRS", folder("none"));
    SettingIcons icons(cinnamonIcons());
    EXPECT_EQ(icons.iconSetting(), std::nullopt);
    EXPECT_EQ(icons.hideIcons(), ShellOutcome::refused);
}

} // namespace zeph
