// SPDX-License-Identifier: MIT
#include "adapters/desktop/SettingIcons.h"

#include "adapters/desktop/ProgramFolder.h"
#include "support/WaitUntil.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class SettingIconsTest : public testing::Test {
protected:
    SettingIconsTest() {
        for (const auto &program : {u"xfdesktop"_s, u"nemo-desktop"_s, u"caja"_s}) {
            folder.install(program, {});
        }
    }

    /// Xfce's tool with the one property in a file, which is not there before it is written.
    void installXfconf() {
        folder.install(u"xfconf-query"_s,
                       "echo \"$*\" >>\"$FOLDER/calls\"\n"
                       "for last; do :; done\n"
                       "case \"$*\" in\n"
                       "--list) exit 0;;\n"
                       "*--reset) : >\"$FOLDER/value\";;\n"
                       "*--set*) echo \"$last\" >\"$FOLDER/value\";;\n"
                       "*) read -r value <\"$FOLDER/value\" && echo \"$value\" && exit 0\n"
                       "   echo \"Property \\\"/x\\\" does not exist on channel\" >&2; exit 1;;\n"
                       "esac");
        folder.write(u"value"_s, {});
    }

    /// A tool that keeps the last of more than three arguments, and prints it else.
    void installGsettings() {
        folder.install(u"gsettings"_s,
                       "echo \"$*\" >>\"$FOLDER/calls\"\n"
                       "if [ $# -gt 3 ]; then echo \"$4\" >\"$FOLDER/value\"\n"
                       "else read -r value <\"$FOLDER/value\"; echo \"$value\"; fi");
        folder.write(u"value"_s, "true\n");
    }

    QStringList calls() const {
        return QString::fromUtf8(folder.read(u"calls"_s)).split(u'\n', Qt::SkipEmptyParts);
    }

    ProgramFolder folder;
    const QString style = u"--channel xfce4-desktop --property /desktop-icons/style"_s;
};

} // namespace

TEST_F(SettingIconsTest, needBothTheToolAndTheProgramThatDrawsThem) {
    SettingIcons without(xfceIcons());
    EXPECT_FALSE(without.canHideIcons());
    EXPECT_EQ(without.iconSetting(), std::nullopt);
    EXPECT_EQ(without.hideIcons(), ShellOutcome::unavailable);
    EXPECT_EQ(without.showIcons(u"2"_s), ShellOutcome::unavailable);
    EXPECT_EQ(without.relaunch(), ShellOutcome::unavailable);
    installXfconf();
    EXPECT_TRUE(SettingIcons(xfceIcons()).canHideIcons());
    EXPECT_TRUE(calls().isEmpty());
    QFile::remove(folder.path(u"bin/xfdesktop"_s));
    EXPECT_FALSE(SettingIcons(xfceIcons()).canHideIcons());
}

TEST_F(SettingIconsTest, ofXfceComeBackInTheStyleThatTheyHad) {
    installXfconf();
    folder.write(u"value"_s, "1\n");
    SettingIcons icons(xfceIcons());
    const auto earlier = icons.iconSetting();
    EXPECT_EQ(earlier, (IconSetting{true, u"1"_s}));
    EXPECT_EQ(icons.hideIcons(), ShellOutcome::done);
    EXPECT_EQ(icons.relaunch(), ShellOutcome::done);
    EXPECT_EQ(icons.iconSetting(), (IconSetting{false, u"0"_s}));
    EXPECT_EQ(icons.showIcons(earlier->value), ShellOutcome::done);
    EXPECT_EQ(icons.iconSetting(), earlier);
    EXPECT_EQ(calls(), (QStringList{style, style + u" --create --type int --set 0"_s, style, style,
                                    style + u" --create --type int --set 1"_s, style}));
}

TEST_F(SettingIconsTest, ofXfceWithoutAChoiceAreWithoutOneAgain) {
    installXfconf();
    SettingIcons icons(xfceIcons());
    const auto earlier = icons.iconSetting();
    ASSERT_TRUE(earlier);
    EXPECT_TRUE(earlier->areShown) << "nobody chose yet";
    EXPECT_EQ(icons.hideIcons(), ShellOutcome::done);
    EXPECT_EQ(icons.showIcons(earlier->value), ShellOutcome::done);
    EXPECT_EQ(calls().last(), style + u" --reset"_s);
    EXPECT_EQ(icons.iconSetting(), earlier);
}

TEST_F(SettingIconsTest, areShownAsTheDesktopDoesWhereNothingWasKept) {
    installXfconf();
    SettingIcons icons(xfceIcons());
    for (const auto &unknown : {QString(), u"0"_s, u"7; rm"_s, u"true"_s}) {
        folder.write(u"value"_s, "0\n");
        EXPECT_EQ(icons.showIcons(unknown), ShellOutcome::done);
        EXPECT_EQ(icons.iconSetting(), (IconSetting{true, u"2"_s})) << unknown.toStdString();
    }
}

TEST_F(SettingIconsTest, ofCinnamonAndMateFollowTheirSetting) {
    installGsettings();
    struct Case {
        IconTool tool;
        QString setting;
        QString shown;
        QString hidden;
    };
    for (const Case &desktop :
         {Case{cinnamonIcons(), u"org.nemo.desktop desktop-layout"_s, u"'true::true'"_s,
               u"'false::false'"_s},
          Case{mateIcons(), u"org.mate.background show-desktop-icons"_s, u"true"_s, u"false"_s}}) {
        QFile::remove(folder.path(u"calls"_s));
        SettingIcons icons(desktop.tool);
        EXPECT_EQ(icons.hideIcons(), ShellOutcome::done);
        EXPECT_EQ(icons.iconSetting(), (IconSetting{false, desktop.hidden}));
        EXPECT_EQ(icons.showIcons(desktop.shown), ShellOutcome::done);
        EXPECT_EQ(icons.iconSetting(), (IconSetting{true, desktop.shown}));
        EXPECT_EQ(calls(), (QStringList{u"set %1 %2"_s.arg(desktop.setting, desktop.hidden),
                                        u"get "_s + desktop.setting, u"get "_s + desktop.setting,
                                        u"set %1 %2"_s.arg(desktop.setting, desktop.shown),
                                        u"get "_s + desktop.setting}));
    }
}

TEST_F(SettingIconsTest, ofCinnamonAreOnTheFirstMonitorWhereNothingWasKept) {
    installGsettings();
    folder.write(u"value"_s, "'false::false'\n");
    SettingIcons icons(cinnamonIcons());
    EXPECT_EQ(icons.showIcons({}), ShellOutcome::done);
    EXPECT_EQ(icons.iconSetting(), (IconSetting{true, u"'true::false'"_s}));
}

TEST_F(SettingIconsTest, thatTheUserShowsSinceKeepTheirNewSetting) {
    installXfconf();
    folder.write(u"value"_s, "1\n");
    SettingIcons icons(xfceIcons());
    EXPECT_EQ(icons.showIcons(u"3"_s), ShellOutcome::done);
    EXPECT_EQ(icons.showIcons(u"absent"_s), ShellOutcome::done);
    EXPECT_EQ(icons.iconSetting(), (IconSetting{true, u"1"_s}));
}

TEST_F(SettingIconsTest, ofCinnamonAreKeptInTheirUsualWords) {
    installGsettings();
    folder.write(u"value"_s, "'true::true::'\n");
    EXPECT_EQ(SettingIcons(cinnamonIcons()).iconSetting(), (IconSetting{true, u"'true::true'"_s}));
}

TEST_F(SettingIconsTest, ofMateNeedTheFileManagerThatMayHaveEnded) {
    installGsettings();
    folder.install(u"caja"_s, "echo \"$*\" >\"$FOLDER/started.new\"\n"
                              "exec mv \"$FOLDER/started.new\" \"$FOLDER/started\"");
    QFile::link(u"/bin/mv"_s, folder.path(u"bin/mv"_s));
    SettingIcons icons(mateIcons());
    EXPECT_EQ(icons.hideIcons(), ShellOutcome::done);
    EXPECT_EQ(icons.relaunch(), ShellOutcome::done);
    EXPECT_FALSE(QFile::exists(folder.path(u"started"_s))) << "it has nothing to draw";
    EXPECT_EQ(icons.showIcons({}), ShellOutcome::done);
    EXPECT_EQ(icons.relaunch(), ShellOutcome::done);
    EXPECT_TRUE(waitUntil([this] { return QFile::exists(folder.path(u"started"_s)); }));
    EXPECT_EQ(folder.read(u"started"_s), "--no-default-window\n");
}

TEST_F(SettingIconsTest, countAsShownWhateverElseTheToolSays) {
    installGsettings();
    folder.write(u"value"_s, "maybe\n");
    EXPECT_EQ(SettingIcons(cinnamonIcons()).iconSetting(), (IconSetting{true, u"maybe"_s}));
}

TEST_F(SettingIconsTest, areNotReadFromAToolThatFails) {
    folder.install(u"gsettings"_s, "echo false; exit 1");
    folder.install(u"xfconf-query"_s, "echo 'Failed to init libxfconf' >&2; exit 1");
    for (const IconTool &tool : {cinnamonIcons(), xfceIcons()}) {
        SettingIcons icons(tool);
        EXPECT_EQ(icons.iconSetting(), std::nullopt);
        EXPECT_EQ(icons.hideIcons(), ShellOutcome::refused);
        EXPECT_EQ(icons.showIcons({}), ShellOutcome::refused);
    }
}

TEST_F(SettingIconsTest, areReadInTheLanguageOfTheTool) {
    const ScopedVariable language("LC_ALL", "de_DE.UTF-8");
    folder.install(u"xfconf-query"_s, "[ \"$LC_ALL\" = C.UTF-8 ] && echo 1");
    EXPECT_EQ(SettingIcons(xfceIcons()).iconSetting(), (IconSetting{true, u"1"_s}));
}

} // namespace zeph
