// SPDX-License-Identifier: MIT
#include "adapters/login/AutostartEntry.h"

#include "adapters/login/AutostartFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QByteArray usersOwn =
    "[Desktop Entry]\nType=Application\nName=Late\nExec=sh -c \"sleep 9\"\n";

/// Two folders of settings, the user's and the system's, and a program that can be started.
class AutostartEntryTest : public testing::Test {
protected:
    AutostartEntryTest() {
        write(program(), "#!/bin/sh\n");
        QFile::setPermissions(program(), QFile::ReadOwner | QFile::ExeOwner);
    }

    QString program() const { return folder.filePath(u"my %u \"$tavi\\"_s); }
    QString userFile() const { return folder.filePath(u"home/autostart/com.tavi.Tavi.desktop"_s); }
    QString systemFile() const { return folder.filePath(u"xdg/autostart/com.tavi.Tavi.desktop"_s); }

    static void write(const QString &path, const QByteArray &bytes) {
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        file.write(bytes);
    }
    static QByteArray read(const QString &path) {
        QFile file(path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    /// Why it failed; empty when it didn't.
    QString set(bool enabled) {
        int answers = 0;
        QString told;
        item.setEnabled(enabled, [&](const std::optional<QString> &error) {
            ++answers;
            told = error.value_or(QString());
        });
        EXPECT_EQ(answers, 1);
        return told;
    }

    /// The program is started from elsewhere from now on; tells why its entry could not be renewed.
    QString renewMoved() const {
        QString told;
        AutostartEntry moved({folder.filePath(u"home"_s), folder.filePath(u"xdg"_s)},
                             u"/moved/tavi"_s);
        moved.renew([&](const std::optional<QString> &error) { told = error.value_or(QString()); });
        return told;
    }

    QTemporaryDir folder;
    AutostartEntry item{{folder.filePath(u"home"_s), folder.filePath(u"xdg"_s)}, program()};
};

} // namespace

TEST_F(AutostartEntryTest, isOffAtFirstAndMakesItsFolder) {
    EXPECT_FALSE(item.isEnabled());
    EXPECT_EQ(set(true), QString());
    EXPECT_TRUE(item.isEnabled());
    EXPECT_EQ(QDir(folder.filePath(u"home/autostart"_s)).entryList(QDir::Files).size(), 1)
        << "nothing is left of writing it";
    EXPECT_EQ(set(false), QString());
    EXPECT_FALSE(item.isEnabled());
    EXPECT_FALSE(QFile::exists(userFile()));
}

TEST_F(AutostartEntryTest, isAValidDesktopEntry) {
    const auto isValid = [this] {
        QProcess tool;
        tool.setProcessChannelMode(QProcess::ForwardedChannels);
        tool.start(u"desktop-file-validate"_s, {userFile()});
        return tool.waitForFinished(20'000) && tool.exitStatus() == QProcess::NormalExit &&
               tool.exitCode() == 0;
    };
    set(true);
    EXPECT_TRUE(isValid()) << read(userFile()).constData();
    write(systemFile(), usersOwn);
    set(false);
    EXPECT_TRUE(read(userFile()).contains("Hidden=true"));
    EXPECT_TRUE(isValid()) << read(userFile()).constData();
}

TEST_F(AutostartEntryTest, isOffWhenItsProgramIsGone) {
    set(true);
    QFile::remove(program());
    EXPECT_FALSE(item.isEnabled());
    write(program(), "#!/bin/sh\n");
    EXPECT_FALSE(item.isEnabled()) << "not to be executed";
}

TEST_F(AutostartEntryTest, startsTheProgramThatRunsNow) {
    const QString other = folder.filePath(u"other"_s);
    QFile::copy(program(), other);
    set(true);
    AutostartEntry moved({folder.filePath(u"home"_s)}, other);
    moved.setEnabled(true, [](const auto &) {});
    EXPECT_TRUE(read(userFile()).contains("TryExec=" + other.toUtf8() + '\n'));
}

TEST_F(AutostartEntryTest, followsAProgramThatWasMoved) {
    set(true);
    QFile::remove(program());
    EXPECT_EQ(renewMoved(), QString());
    EXPECT_EQ(read(userFile()), writeAutostart(u"/moved/tavi"_s, true));
}

TEST_F(AutostartEntryTest, leavesAnEntryOfAnotherCopyThatIsThere) {
    set(true);
    const QByteArray before = read(userFile());
    EXPECT_EQ(renewMoved(), QString());
    EXPECT_EQ(read(userFile()), before);
}

TEST_F(AutostartEntryTest, renewsNothingThatWasSwitchedOff) {
    EXPECT_EQ(renewMoved(), QString());
    EXPECT_FALSE(QFile::exists(userFile())) << "there was none";
    write(userFile(), writeAutostart(u"/gone/tavi"_s, false));
    EXPECT_EQ(renewMoved(), QString());
    EXPECT_EQ(read(userFile()), writeAutostart(u"/gone/tavi"_s, false));
    const QByteArray byAnother =
        writeAutostart(u"/gone/tavi"_s, true)
            .replace("X-GNOME-Autostart-enabled=true", "X-GNOME-Autostart-enabled=false");
    write(userFile(), byAnother);
    EXPECT_EQ(renewMoved(), QString());
    EXPECT_EQ(read(userFile()), byAnother) << "in a program of the desktop's";
}

TEST_F(AutostartEntryTest, renewsNothingOfTheUsersOwn) {
    const QByteArray own = usersOwn + "TryExec=/gone/tavi\n";
    write(userFile(), own);
    EXPECT_EQ(renewMoved(), QString());
    EXPECT_EQ(read(userFile()), own);
    QFile::remove(userFile());
    const QString target = folder.filePath(u"dotfiles.desktop"_s);
    write(target, writeAutostart(u"/gone/tavi"_s, true));
    ASSERT_TRUE(QFile::link(target, userFile()));
    EXPECT_EQ(renewMoved(), QString());
    EXPECT_TRUE(QFileInfo(userFile()).isSymLink());
    EXPECT_EQ(read(target), writeAutostart(u"/gone/tavi"_s, true));
}

TEST_F(AutostartEntryTest, hidesTheSystemsEntryAndShowsItAgain) {
    write(systemFile(), usersOwn);
    EXPECT_TRUE(item.isEnabled());
    EXPECT_EQ(set(false), QString());
    EXPECT_FALSE(item.isEnabled());
    EXPECT_EQ(read(systemFile()), usersOwn);
    EXPECT_EQ(set(true), QString());
    EXPECT_TRUE(item.isEnabled());
}

TEST_F(AutostartEntryTest, believesTheFirstOfSeveralSystemEntries) {
    const AutostartEntry several({folder.filePath(u"home"_s), folder.filePath(u"nowhere"_s),
                                  folder.filePath(u"xdg"_s), folder.filePath(u"etc"_s)},
                                 program());
    write(systemFile(), usersOwn + "Hidden=true\n");
    write(folder.filePath(u"etc/autostart/com.tavi.Tavi.desktop"_s), usersOwn);
    EXPECT_FALSE(several.isEnabled());
}

TEST_F(AutostartEntryTest, keepsWhatTheUserWroteThere) {
    write(userFile(), usersOwn);
    EXPECT_TRUE(item.isEnabled());
    EXPECT_EQ(set(false), QString());
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(read(userFile()).contains("Exec=sh -c \"sleep 9\""));
    EXPECT_EQ(set(true), QString());
    EXPECT_EQ(read(userFile()), usersOwn);
}

TEST_F(AutostartEntryTest, tellsThatAnEntryOfTheUserStartsNothing) {
    write(userFile(), usersOwn + "TryExec=/nonexistent/tavi\nHidden=true\n");
    EXPECT_TRUE(set(true).contains(u"is not there"_s));
}

TEST_F(AutostartEntryTest, leavesALinkAlone) {
    const QString target = folder.filePath(u"dotfiles.desktop"_s);
    write(target, usersOwn);
    QDir().mkpath(QFileInfo(userFile()).path());
    ASSERT_TRUE(QFile::link(target, userFile()));
    EXPECT_TRUE(item.isEnabled());
    EXPECT_TRUE(set(false).contains(u"was left alone"_s));
    EXPECT_TRUE(QFileInfo(userFile()).isSymLink());
    EXPECT_EQ(read(target), usersOwn);
}

TEST_F(AutostartEntryTest, leavesALinkToNothingAlone) {
    QDir().mkpath(QFileInfo(userFile()).path());
    ASSERT_TRUE(QFile::link(folder.filePath(u"gone"_s), userFile()));
    EXPECT_TRUE(set(true).contains(u"was left alone"_s));
    EXPECT_FALSE(QFile::exists(folder.filePath(u"gone"_s)));
}

TEST_F(AutostartEntryTest, leavesAloneWhatItCantUnderstand) {
    write(userFile(), "not an entry");
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(set(true).contains(u"was left alone"_s));
    EXPECT_EQ(read(userFile()), "not an entry");
    const QByteArray endless = usersOwn + '#' + QByteArray(70'000, 'x') + '\n';
    write(userFile(), endless);
    EXPECT_TRUE(set(false).contains(u"was left alone"_s));
    EXPECT_EQ(read(userFile()), endless);
}

TEST_F(AutostartEntryTest, waitsForNothingInItsPlace) {
    QDir().mkpath(QFileInfo(userFile()).path());
    ASSERT_EQ(::mkfifo(QFile::encodeName(userFile()).constData(), 0600), 0);
    EXPECT_FALSE(item.isEnabled());
    EXPECT_TRUE(set(true).contains(u"was left alone"_s));
}

TEST_F(AutostartEntryTest, tellsThatItsFolderCantBeMade) {
    write(folder.filePath(u"home"_s), "a file");
    EXPECT_TRUE(set(true).contains(u"can't be written"_s));
    EXPECT_FALSE(item.isEnabled());
}

TEST_F(AutostartEntryTest, asksForNothingWhereItIsOffAlready) {
    EXPECT_EQ(set(false), QString());
    EXPECT_FALSE(QFile::exists(userFile()));
}

} // namespace zeph
