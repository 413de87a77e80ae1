// SPDX-License-Identifier: MIT
#include "adapters/apps/DesktopEntries.h"

#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"
#include "support/QtPrinters.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace zeph {

class DesktopEntriesTest : public testing::Test {
protected:
    void install(const QTemporaryDir &where, const QString &file, const QByteArray &keys) {
        const QString path = where.path() + u"/applications/"_s + file;
        QDir().mkpath(QFileInfo(path).path());
        QFile out(path);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write("[Desktop Entry]\nType=Application\n" + keys);
    }

    /// Runs the loop until a change of the folders has led to a reading.
    bool waitForReading() {
        return waitUntil([this] { return executor.waiting() > 0; });
    }

    /// Made by the first use, after the installations before it.
    DesktopEntries &entries() {
        return made ? *made
                    : made.emplace(QStringList{user.path(), system.path()}, u"de_DE.UTF-8"_s,
                                   background);
    }

    /// Absent while the answer is on its way.
    std::optional<InstalledApplication> ask(const ApplicationHints &hints) {
        std::optional<InstalledApplication> answer;
        entries().find(hints, [&](const InstalledApplication *found) {
            answer = found ? *found : InstalledApplication();
        });
        executor.runAll();
        loop.drain();
        return answer;
    }

    QString find(const ApplicationHints &hints) {
        const auto found = ask(hints);
        EXPECT_TRUE(found) << "no answer came";
        return found ? found->identifier : QString();
    }

    QTemporaryDir user;
    QTemporaryDir system;
    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    Background background = Background::over(executor, loop);
    std::optional<DesktopEntries> made;
};

namespace {

ApplicationHints windowClass(const QString &name, const QString &instance = {}) {
    ApplicationHints hints;
    hints.windowClass = name;
    hints.windowInstance = instance;
    return hints;
}

ApplicationHints gtk(const QString &identifier) {
    ApplicationHints hints;
    hints.gtkApplicationId = identifier;
    return hints;
}

ApplicationHints program(const QString &name) {
    ApplicationHints hints;
    hints.program = name;
    return hints;
}

} // namespace

TEST_F(DesktopEntriesTest, matchesByWhatTheWindowNamesFirst) {
    install(system, u"org.kde.thing.desktop"_s, "Name=Thing\n");
    install(system, u"other.desktop"_s, "Name=Other\nStartupWMClass=Thing\n");
    ApplicationHints hints = windowClass(u"Thing"_s);
    hints.desktopFile = u"org.kde.thing"_s;
    EXPECT_EQ(find(hints), u"org.kde.thing"_s);
    hints.desktopFile = u"/usr/share/applications/org.kde.thing.desktop"_s;
    EXPECT_EQ(find(hints), u"org.kde.thing"_s);
    hints.desktopFile = u"absent"_s;
    EXPECT_EQ(find(hints), u"other"_s);
}

TEST_F(DesktopEntriesTest, matchesByGtkIdentifierThenByItsLastPart) {
    install(system, u"org.example.Editor.desktop"_s, "Name=Editor\n");
    install(system, u"nemo.desktop"_s, "Name=Files\n");
    EXPECT_EQ(find(gtk(u"org.example.Editor"_s)), u"org.example.Editor"_s);
    EXPECT_EQ(find(gtk(u"org.Nemo"_s)), u"nemo"_s);
}

TEST_F(DesktopEntriesTest, matchesByStartupClassBeforeFileName) {
    install(system, u"xterm.desktop"_s, "Name=File\n");
    install(system, u"terminal.desktop"_s, "Name=Class\nStartupWMClass=XTerm\n");
    EXPECT_EQ(find(windowClass(u"XTerm"_s, u"xterm"_s)), u"terminal"_s);
    EXPECT_EQ(find(windowClass(u"Any"_s, u"XTerm"_s)), u"terminal"_s);
    EXPECT_EQ(find(windowClass(u"Any"_s, u"xterm"_s)), u"xterm"_s);
}

TEST_F(DesktopEntriesTest, matchesFileNamesWhateverTheirCase) {
    install(system, u"org.gnome.Nautilus.desktop"_s, "Name=Files\n");
    EXPECT_EQ(find(windowClass(u"Org.gnome.Nautilus"_s)), u"org.gnome.Nautilus"_s);
}

TEST_F(DesktopEntriesTest, matchesByProgramLastAndPrefersWhatMenusShow) {
    install(system, u"a-helper.desktop"_s, "Name=Helper\nExec=files --helper\nNoDisplay=true\n");
    install(system, u"files.app.desktop"_s, "Name=Files\nExec=/usr/bin/files %U\n");
    EXPECT_EQ(find(program(u"files"_s)), u"files.app"_s);
    EXPECT_EQ(find(program(u"nothing"_s)), QString());
    EXPECT_EQ(find({}), QString());
}

TEST_F(DesktopEntriesTest, prefersTheUsersOwnEntries) {
    install(system, u"edit.desktop"_s, "Name=System\n");
    install(user, u"edit.desktop"_s, "Name=Mine\nName[de]=Meins\n");
    EXPECT_EQ(ask(windowClass(u"edit"_s))->entry.name, u"Meins"_s);
    EXPECT_EQ(ask(windowClass(u"edit"_s))->path, user.path() + u"/applications/edit.desktop"_s);
}

TEST_F(DesktopEntriesTest, respectsAnEntryThatTheUserDeleted) {
    install(system, u"edit.desktop"_s, "Name=System\n");
    install(user, u"edit.desktop"_s, "Hidden=true\n");
    EXPECT_EQ(find(windowClass(u"edit"_s)), QString());
}

TEST_F(DesktopEntriesTest, joinsFoldersIntoTheIdentifier) {
    install(system, u"kde/konsole.desktop"_s, "Name=Konsole\n");
    EXPECT_EQ(find(windowClass(u"kde-konsole"_s)), u"kde-konsole"_s);
}

TEST_F(DesktopEntriesTest, findsWhatIsInstalledWhileItRuns) {
    install(system, u"first.desktop"_s, "Name=First\n");
    EXPECT_EQ(find(windowClass(u"second"_s)), QString());
    install(system, u"second.desktop"_s, "Name=Second\n");
    ASSERT_TRUE(waitForReading());
    EXPECT_EQ(find(windowClass(u"second"_s)), u"second"_s);
}

TEST_F(DesktopEntriesTest, findsWhatIsInstalledWhereSeveralFoldersWereMissing) {
    made.emplace(QStringList{user.path() + u"/share"_s}, u"de_DE.UTF-8"_s, background);
    EXPECT_EQ(find(windowClass(u"first"_s)), QString());
    QDir().mkpath(user.path() + u"/share"_s);
    ASSERT_TRUE(waitForReading());
    EXPECT_EQ(find(windowClass(u"first"_s)), QString());
    QDir().mkpath(user.path() + u"/share/applications"_s);
    ASSERT_TRUE(waitForReading());
    EXPECT_EQ(find(windowClass(u"first"_s)), QString());
    install(user, u"../share/applications/first.desktop"_s, "Name=First\n");
    ASSERT_TRUE(waitForReading());
    EXPECT_EQ(find(windowClass(u"first"_s)), u"first"_s);
}

TEST_F(DesktopEntriesTest, findsWhatIsInstalledInAFolderThatWasThereBefore) {
    install(system, u"deep/first.desktop"_s, "Name=First\n");
    EXPECT_EQ(find(windowClass(u"deep-second"_s)), QString());
    install(system, u"deep/second.desktop"_s, "Name=Second\n");
    ASSERT_TRUE(waitForReading());
    EXPECT_EQ(find(windowClass(u"deep-second"_s)), u"deep-second"_s);
}

TEST_F(DesktopEntriesTest, readsAgainAnEntryThatIsEditedInPlace) {
    install(system, u"edit.desktop"_s, "Name=Before\n");
    EXPECT_EQ(ask(windowClass(u"edit"_s))->entry.name, u"Before"_s);
    install(system, u"edit.desktop"_s, "Name=After\n");
    ASSERT_TRUE(waitForReading());
    // An edit may be noticed in two steps, the first of them an empty file.
    EXPECT_TRUE(waitUntil([this] {
        const auto found = ask(windowClass(u"edit"_s));
        return found && found->entry.name == u"After"_s;
    }));
}

TEST_F(DesktopEntriesTest, forgetsWhatIsRemoved) {
    install(system, u"gone.desktop"_s, "Name=Gone\n");
    EXPECT_EQ(find(windowClass(u"gone"_s)), u"gone"_s);
    ASSERT_TRUE(QFile::remove(system.path() + u"/applications/gone.desktop"_s));
    ASSERT_TRUE(waitForReading());
    executor.runAll();
    loop.drain();
    EXPECT_EQ(find(windowClass(u"gone"_s)), QString());
}

TEST_F(DesktopEntriesTest, tellsThatAnswersMayHaveChanged) {
    install(system, u"first.desktop"_s, "Name=First\n");
    find({});
    int changes = 0;
    const Subscription subscription = entries().subscribe([&] { ++changes; });
    install(system, u"second.desktop"_s, "Name=Second\n");
    ASSERT_TRUE(waitForReading());
    EXPECT_EQ(changes, 0);
    executor.runAll();
    loop.drain();
    EXPECT_EQ(changes, 1);
}

TEST_F(DesktopEntriesTest, readsNothingBeforeItsTaskRuns) {
    install(system, u"first.desktop"_s, "Name=First\n");
    QStringList answers;
    const auto note = [&](const InstalledApplication *found) {
        answers << (found ? found->identifier : u"none"_s);
    };
    entries().find(windowClass(u"first"_s), note);
    entries().find(windowClass(u"absent"_s), note);
    EXPECT_EQ(executor.waiting(), 1U) << "one reading for all";
    executor.runAll();
    EXPECT_EQ(answers, QStringList()) << "told on another thread";
    loop.drain();
    EXPECT_EQ(answers, QStringList({u"first"_s, u"none"_s}));
}

TEST_F(DesktopEntriesTest, readsNothingTwiceWhileNothingIsInstalled) {
    install(system, u"first.desktop"_s, "Name=First\n");
    EXPECT_EQ(find(windowClass(u"first"_s)), u"first"_s);
    int answers = 0;
    entries().find(windowClass(u"absent"_s), [&](const auto *found) {
        EXPECT_EQ(found, nullptr);
        ++answers;
    });
    EXPECT_EQ(answers, 1) << "answered at once";
    EXPECT_EQ(executor.waiting(), 0U);
}

TEST_F(DesktopEntriesTest, aReadingThatOutlivesItTellsNobody) {
    auto ending = std::make_unique<DesktopEntries>(QStringList{system.path()}, u"C"_s, background);
    bool isTold = false;
    ending->find(windowClass(u"new"_s), [&](const auto *) { isTold = true; });
    ending.reset();
    executor.runAll();
    loop.drain();
    EXPECT_FALSE(isTold);
}

TEST_F(DesktopEntriesTest, survivesLinksInACircle) {
    install(system, u"deep/app.desktop"_s, "Name=App\n");
    QFile::link(system.path() + u"/applications"_s, system.path() + u"/applications/deep/loop"_s);
    QFile::link(u"self.desktop"_s, system.path() + u"/applications/self.desktop"_s);
    EXPECT_EQ(find(windowClass(u"deep-app"_s)), u"deep-app"_s);
}

TEST_F(DesktopEntriesTest, leavesOutHugeFilesPipesAndFolders) {
    install(system, u"huge.desktop"_s, "Name=Huge\n#" + QByteArray(600 * 1024, 'x'));
    QDir().mkpath(system.path() + u"/applications/folder.desktop"_s);
    const QString pipe = system.path() + u"/applications/pipe.desktop"_s;
    ASSERT_EQ(mkfifo(QFile::encodeName(pipe).constData(), 0600), 0);
    install(system, u"good.desktop"_s, "Name=Good\n");
    EXPECT_EQ(find(windowClass(u"huge"_s)), QString());
    EXPECT_EQ(find(windowClass(u"good"_s)), u"good"_s);
}

TEST_F(DesktopEntriesTest, livesWithoutAnyDirectory) {
    DesktopEntries none({u"/nonexistent"_s}, u"C"_s, background);
    executor.runAll();
    loop.drain();
    bool isTold = false;
    none.find(windowClass(u"a"_s), [&](const auto *found) { isTold = found == nullptr; });
    EXPECT_TRUE(isTold);
}

} // namespace zeph
