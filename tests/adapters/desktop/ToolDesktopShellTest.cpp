// SPDX-License-Identifier: MIT
#include "adapters/desktop/ToolDesktopShell.h"

#include "adapters/desktop/ProgramFolder.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

class ToolDesktopShellTest : public testing::Test {
protected:
    /// A tool that keeps the last of its arguments when it has more than those of a question.
    void installTool(const QString &name, int argumentsOfQuestion) {
        folder.install(name, "echo \"$*\" >>\"$FOLDER/calls\"\nif [ $# -le " +
                                 QByteArray::number(argumentsOfQuestion) +
                                 " ]; then read -r value <\"$FOLDER/value\" || exit 1; echo "
                                 "\"$value\"; else for value; do :; done; echo \"$value\" "
                                 ">\"$FOLDER/value\"; fi");
    }
    QStringList calls() const {
        return QString::fromUtf8(folder.read(u"calls"_s)).split(u'\n', Qt::SkipEmptyParts);
    }

    ProgramFolder folder;
};

} // namespace

TEST_F(ToolDesktopShellTest, hasNoIconsToHideOnOtherDesktops) {
    for (const QString &desktop : {u""_s, u"GNOME"_s, u"sway"_s, u"KDE"_s, u"LXQt"_s}) {
        const auto shell = makeDesktopShell(desktop);
        EXPECT_FALSE(shell->canHideIcons());
        EXPECT_TRUE(shell->areIconsShown());
        shell->setIconsShown(false);
        shell->relaunch();
        EXPECT_TRUE(shell->areIconsShown());
    }
}

TEST_F(ToolDesktopShellTest, needsBothTheToolAndTheProgramThatDrawsTheIcons) {
    EXPECT_FALSE(makeDesktopShell(u"XFCE"_s)->canHideIcons());
    installTool(u"xfconf-query"_s, 4);
    const auto without = makeDesktopShell(u"XFCE"_s);
    EXPECT_FALSE(without->canHideIcons());
    EXPECT_TRUE(without->areIconsShown());
    without->setIconsShown(false);
    EXPECT_TRUE(calls().isEmpty());
    folder.install(u"xfdesktop"_s, {});
    EXPECT_TRUE(makeDesktopShell(u"XFCE"_s)->canHideIcons());
}

TEST_F(ToolDesktopShellTest, hidesAndShowsThoseOfXfce) {
    installTool(u"xfconf-query"_s, 4);
    folder.install(u"xfdesktop"_s, {});
    const auto shell = makeDesktopShell(u"XFCE"_s);
    EXPECT_TRUE(shell->areIconsShown()) << "nobody chose yet";
    shell->setIconsShown(false);
    EXPECT_FALSE(shell->areIconsShown());
    shell->setIconsShown(true);
    EXPECT_TRUE(shell->areIconsShown());
    const QString property = u"--channel xfce4-desktop --property /desktop-icons/style"_s;
    EXPECT_EQ(calls(),
              (QStringList{property, property + u" --create --type int --set 0"_s, property,
                           property + u" --create --type int --set 2"_s, property}));
}

TEST_F(ToolDesktopShellTest, hidesAndShowsThoseOfCinnamonAndMate) {
    installTool(u"gsettings"_s, 3);
    folder.install(u"nemo-desktop"_s, {});
    folder.install(u"caja"_s, {});
    for (const auto &[desktop, setting] :
         {std::pair{u"X-Cinnamon"_s, u"org.nemo.desktop show-desktop-icons"_s},
          std::pair{u"MATE"_s, u"org.mate.background show-desktop-icons"_s}}) {
        QFile::remove(folder.path(u"calls"_s));
        const auto shell = makeDesktopShell(desktop);
        shell->setIconsShown(false);
        EXPECT_FALSE(shell->areIconsShown());
        shell->setIconsShown(true);
        EXPECT_TRUE(shell->areIconsShown());
        EXPECT_EQ(calls(), (QStringList{u"set "_s + setting + u" false"_s, u"get "_s + setting,
                                        u"set "_s + setting + u" true"_s, u"get "_s + setting}));
    }
}

TEST_F(ToolDesktopShellTest, takesWhateverElseTheToolSaysForShown) {
    installTool(u"gsettings"_s, 3);
    folder.install(u"nemo-desktop"_s, {});
    const auto shell = makeDesktopShell(u"X-Cinnamon"_s);
    folder.write(u"value"_s, "maybe\n");
    EXPECT_TRUE(shell->areIconsShown());
    folder.install(u"gsettings"_s, "echo false; exit 1");
    EXPECT_TRUE(shell->areIconsShown()) << "a tool that fails tells nothing";
}

TEST_F(ToolDesktopShellTest, isThatOfTheFirstDesktopThatIsKnown) {
    EXPECT_EQ(iconToolFor(u"pop: XFCE :MATE"_s)->program, u"xfconf-query"_s);
    EXPECT_EQ(iconToolFor(u"cinnamon"_s)->desktopProgram, u"nemo-desktop"_s);
    EXPECT_FALSE(iconToolFor(u"XFCEish"_s));
}

} // namespace zeph
