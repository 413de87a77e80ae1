// SPDX-License-Identifier: MIT
#include "adapters/desktop/DesktopShells.h"

#include "adapters/desktop/ProgramFolder.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Every desktop's programs; what is called tells which desktop it is.
class DesktopShellsTest : public testing::Test {
protected:
    DesktopShellsTest() {
        for (const auto &program :
             {u"xfdesktop"_s, u"xfconf-query"_s, u"gsettings"_s, u"nemo-desktop"_s, u"caja"_s,
              u"pcmanfm"_s, u"pcmanfm-qt"_s, u"gnome-extensions"_s, u"plasmashell"_s}) {
            folder.install(program, "echo \"${0##*/} $*\" >>\"$FOLDER/calls\"");
        }
        folder.write(u"gnome-shell/extensions/ding@rastersoft.com/metadata.json"_s, "{}");
    }

    std::unique_ptr<DesktopShell> shell(const QString &desktop) const {
        return makeDesktopShell(desktop, {folder.path({})}, QDBusConnection(u"no bus"_s));
    }

    /// What hiding the icons calls, and what comes of it.
    QString hiding(const QString &desktop) {
        QFile::remove(folder.path(u"calls"_s));
        outcome = shell(desktop)->hideIcons();
        return QString::fromUtf8(folder.read(u"calls"_s));
    }

    ProgramFolder folder;
    ShellOutcome outcome = ShellOutcome::done;
};

} // namespace

TEST_F(DesktopShellsTest, areThatOfEachDesktop) {
    EXPECT_TRUE(hiding(u"XFCE"_s).startsWith(u"xfconf-query "_s));
    EXPECT_TRUE(hiding(u"X-Cinnamon"_s).startsWith(u"gsettings set org.nemo.desktop"_s));
    EXPECT_TRUE(hiding(u"cinnamon"_s).startsWith(u"gsettings set org.nemo.desktop"_s));
    EXPECT_TRUE(hiding(u"MATE"_s).startsWith(u"gsettings set org.mate.background"_s));
    EXPECT_TRUE(hiding(u"LXDE"_s).startsWith(u"pcmanfm --desktop-off"_s));
    EXPECT_TRUE(hiding(u"LXQt"_s).startsWith(u"pcmanfm-qt --desktop-off"_s));
    EXPECT_TRUE(hiding(u"ubuntu:GNOME"_s).startsWith(u"gnome-extensions list"_s));
    EXPECT_EQ(outcome, ShellOutcome::done);
    EXPECT_EQ(hiding(u"KDE"_s), QString()) << "it is asked over the bus";
    EXPECT_NE(outcome, ShellOutcome::done) << "which is not there";
    EXPECT_TRUE(shell(u"KDE"_s)->canHideIcons());
}

TEST_F(DesktopShellsTest, areThatOfTheFirstDesktopThatIsKnown) {
    EXPECT_TRUE(hiding(u"pop: XFCE :MATE"_s).startsWith(u"xfconf-query "_s));
    EXPECT_TRUE(hiding(u"Budgie:GNOME"_s).startsWith(u"gnome-extensions"_s));
}

TEST_F(DesktopShellsTest, haveANameForEachDesktopThatWhatIsKeptGoesBy) {
    for (const auto &[desktop, name] : {std::pair{u"GNOME"_s, u"gnome"_s},
                                        {u"Unity"_s, u"gnome"_s},
                                        {u"KDE"_s, u"plasma"_s},
                                        {u"XFCE"_s, u"xfce"_s},
                                        {u"X-Cinnamon"_s, u"cinnamon"_s},
                                        {u"cinnamon"_s, u"cinnamon"_s},
                                        {u"MATE"_s, u"mate"_s},
                                        {u"LXDE"_s, u"lxde"_s},
                                        {u"LXQt"_s, u"lxqt"_s},
                                        {u"sway"_s, QString()}}) {
        EXPECT_EQ(shell(desktop)->name(), name);
    }
}

TEST_F(DesktopShellsTest, hideUnreadOnlyWhatDoesNotLast) {
    for (const QString &desktop : {u"GNOME"_s, u"KDE"_s, u"XFCE"_s, u"X-Cinnamon"_s, u"MATE"_s}) {
        EXPECT_FALSE(shell(desktop)->hidesUnread()) << desktop.toStdString();
    }
    EXPECT_TRUE(shell(u"LXDE"_s)->hidesUnread());
    EXPECT_TRUE(shell(u"LXQt"_s)->hidesUnread());
}

TEST_F(DesktopShellsTest, areToldOfProgramsWhereIconsComeWithThem) {
    const auto isTold = [this](const QString &desktop) {
        ChangePublisher programs;
        const auto told = makeDesktopShell(
            desktop, {folder.path({})}, QDBusConnection(u"no bus"_s),
            [&](std::function<void()> handler) { return programs.subscribe(std::move(handler)); });
        int calls = 0;
        const Subscription subscription = told->subscribeToDrawer([&] { ++calls; });
        programs.send();
        return calls == 1;
    };
    EXPECT_TRUE(isTold(u"LXDE"_s));
    EXPECT_TRUE(isTold(u"LXQt"_s));
    for (const QString &lasting : {u"XFCE"_s, u"MATE"_s, u"X-Cinnamon"_s, u"GNOME"_s, u"i3"_s}) {
        EXPECT_FALSE(isTold(lasting)) << lasting.toStdString();
    }
}

TEST_F(DesktopShellsTest, haveNothingToHideOnOtherDesktops) {
    for (const QString &desktop : {u""_s, u"sway"_s, u"XFCEish"_s, u"i3"_s}) {
        const auto none = shell(desktop);
        EXPECT_FALSE(none->canHideIcons());
        EXPECT_EQ(none->iconSetting(), std::nullopt);
        EXPECT_EQ(none->hideIcons(), ShellOutcome::unavailable);
        EXPECT_EQ(none->showIcons({}), ShellOutcome::unavailable);
        EXPECT_EQ(none->relaunch(), ShellOutcome::unavailable);
    }
}

} // namespace zeph
