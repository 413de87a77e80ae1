// SPDX-License-Identifier: MIT
#include "adapters/desktop/ProgramIcons.h"

#include "adapters/desktop/ProgramFolder.h"
#include "support/WaitUntil.h"

#include <QProcess>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// A file manager whose desktop is a file.
class ProgramIconsTest : public testing::Test {
protected:
    ProgramIconsTest() {
        for (const auto &program : {u"pcmanfm"_s, u"pcmanfm-qt"_s}) {
            folder.install(program, "echo \"$*\" >>\"$FOLDER/calls\"\n"
                                    "case \"$*\" in\n"
                                    "--desktop-off*) echo off >\"$FOLDER/desktop\";;\n"
                                    "*) echo on >\"$FOLDER/desktop\";;\n"
                                    "esac");
        }
        folder.write(u"desktop"_s, "on\n");
    }

    ProgramIcons icons(const DesktopProgram &program,
                       std::chrono::milliseconds patience = std::chrono::seconds(10)) {
        return {program,
                [this](const QByteArray &instance) -> std::optional<DesktopLook> {
                    looks.append(instance);
                    return canLook ? std::optional(
                                         DesktopLook{folder.read(u"desktop"_s) == "on\n", process})
                                   : std::nullopt;
                },
                patience};
    }

    QStringList calls() const {
        return QString::fromUtf8(folder.read(u"calls"_s)).split(u'\n', Qt::SkipEmptyParts);
    }

    ProgramFolder folder;
    bool canLook = true;
    quint32 process = 0;
    QByteArrayList looks;
};

} // namespace

TEST_F(ProgramIconsTest, goAndComeWithTheDesktopOfTheFileManager) {
    for (const auto &[program, profile] :
         {std::pair{lxdeDesktop(), u"LXDE"_s}, std::pair{lxqtDesktop(), u"lxqt"_s}}) {
        QFile::remove(folder.path(u"calls"_s));
        ProgramIcons shown = icons(program);
        EXPECT_TRUE(shown.canHideIcons());
        EXPECT_TRUE(shown.iconSetting()->areShown);
        EXPECT_EQ(shown.hideIcons(), ShellOutcome::done);
        EXPECT_EQ(shown.relaunch(), ShellOutcome::done);
        EXPECT_FALSE(shown.iconSetting()->areShown);
        EXPECT_EQ(shown.showIcons({}), ShellOutcome::done);
        EXPECT_EQ(shown.relaunch(), ShellOutcome::done) << "it waits until they are there";
        EXPECT_TRUE(shown.iconSetting()->areShown);
        ASSERT_EQ(calls().size(), 2);
        EXPECT_EQ(calls()[0], u"--desktop-off"_s);
        EXPECT_EQ(calls()[1], u"--desktop --profile "_s + profile);
    }
    EXPECT_TRUE(looks.contains("pcmanfm"));
    EXPECT_TRUE(looks.contains("pcmanfm-qt"));
}

TEST_F(ProgramIconsTest, comeBackWithTheProfileThatTheProgramRanWith) {
    QProcess running;
    running.start(u"/bin/sh"_s, {u"-c"_s, u"read -r end"_s, u"--profile"_s, u"LXDE-pi"_s});
    ASSERT_TRUE(running.waitForStarted());
    process = static_cast<quint32>(running.processId());
    ProgramIcons shown = icons(lxdeDesktop());
    EXPECT_TRUE(waitUntil([&] { return shown.iconSetting() == IconSetting{true, u"LXDE-pi"_s}; }));
    running.closeWriteChannel();
    running.waitForFinished();
    EXPECT_EQ(shown.hideIcons(), ShellOutcome::done);
    EXPECT_EQ(shown.iconSetting(), (IconSetting{false, {}, IconDrawer::off}));
    EXPECT_EQ(shown.showIcons(u"LXDE-pi"_s), ShellOutcome::done);
    EXPECT_EQ(shown.relaunch(), ShellOutcome::done);
    EXPECT_EQ(calls().last(), u"--desktop --profile LXDE-pi"_s);
    EXPECT_EQ(shown.showIcons(u"../--off"_s), ShellOutcome::done);
    EXPECT_TRUE(waitUntil([this] { return calls().size() == 3; }));
    EXPECT_EQ(calls().last(), u"--desktop --profile LXDE"_s);
}

TEST(ProfileInACommandLine, isFoundInAnyForm) {
    using namespace std::string_literals;
    const auto profile = [](const std::string &line) {
        return profileIn(QByteArray::fromStdString(line));
    };
    EXPECT_EQ(profile("pcmanfm\0--desktop\0--profile\0LXDE-pi\0"s), u"LXDE-pi"_s);
    EXPECT_EQ(profile("pcmanfm-qt\0--profile=lxqt\0--desktop\0"s), u"lxqt"_s);
    EXPECT_EQ(profile("pcmanfm\0-p\0Lubuntu\0"s), u"Lubuntu"_s);
    for (const std::string &none :
         {""s, "pcmanfm\0--desktop\0"s, "pcmanfm\0--profile\0"s, "pcmanfm\0--profile"s,
          "pcmanfm\0--profile\0../x\0"s, "pcmanfm\0--profile\0--desktop\0"s, "--profile=x\0"s,
          "pcmanfm\0--profile=\0"s}) {
        EXPECT_EQ(profile(none), QString()) << none;
    }
}

TEST_F(ProgramIconsTest, thatDoNotFollowAreRefusedAfterAWhile) {
    folder.install(u"pcmanfm"_s, {});
    ProgramIcons shown = icons(lxdeDesktop(), std::chrono::milliseconds(1));
    EXPECT_EQ(shown.hideIcons(), ShellOutcome::done);
    EXPECT_EQ(shown.relaunch(), ShellOutcome::refused);
    folder.install(u"pcmanfm"_s, "exit 1");
    EXPECT_EQ(shown.hideIcons(), ShellOutcome::refused);
}

TEST_F(ProgramIconsTest, cannotBeReadWhereNobodyCanLook) {
    canLook = false;
    ProgramIcons shown = icons(lxdeDesktop());
    EXPECT_EQ(shown.iconSetting(), std::nullopt);
    EXPECT_EQ(shown.relaunch(), ShellOutcome::unavailable);
}

TEST_F(ProgramIconsTest, tellWhenTheProgramMayHaveCome) {
    ChangePublisher programs;
    const ProgramIcons::Notices notices = [&](std::function<void()> handler) {
        return programs.subscribe(std::move(handler));
    };
    int calls = 0;
    ProgramIcons told(
        lxdeDesktop(), [](const QByteArray &) { return DesktopLook{}; }, {}, notices);
    auto subscription = std::make_optional(told.subscribeToDrawer([&] { ++calls; }));
    programs.send();
    EXPECT_EQ(calls, 1);
    subscription.reset();
    programs.send();
    EXPECT_EQ(calls, 1);
}

TEST_F(ProgramIconsTest, needTheFileManager) {
    QFile::remove(folder.path(u"bin/pcmanfm"_s));
    ProgramIcons none = icons(lxdeDesktop());
    EXPECT_FALSE(none.canHideIcons());
    EXPECT_EQ(none.iconSetting(), std::nullopt);
    EXPECT_EQ(none.hideIcons(), ShellOutcome::unavailable);
    EXPECT_EQ(none.showIcons({}), ShellOutcome::unavailable);
    EXPECT_EQ(none.relaunch(), ShellOutcome::unavailable);
    EXPECT_TRUE(looks.isEmpty());
}

} // namespace zeph
