// SPDX-License-Identifier: MIT
#include "adapters/storage/UserDirs.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zeph {

namespace {

std::optional<QByteArray> folderIn(const char *userDirs) {
    return desktopFolderIn(userDirs, "/home/ada");
}

const QByteArray usual = "/home/ada/Desktop";

TEST(UserDirs, nameTheDesktopRelativeToTheHome) {
    EXPECT_EQ(folderIn("# made by a tool\nXDG_DOWNLOAD_DIR=\"$HOME/Downloads\"\n"
                       "XDG_DESKTOP_DIR=\"$HOME/Schreibtisch\"\nXDG_MUSIC_DIR=\"$HOME/Musik\"\n"),
              "/home/ada/Schreibtisch");
}

TEST(UserDirs, nameTheDesktopAnywhere) {
    EXPECT_EQ(folderIn("XDG_DESKTOP_DIR=\"/srv/desks/ada\""), "/srv/desks/ada");
}

TEST(UserDirs, fallBackToTheUsualFolder) {
    for (const char *text :
         {"", "\n\n", "# XDG_DESKTOP_DIR=\"/no\"", "XDG_DESKTOP_DIR=/no", "XDG_DESKTOP_DIR=\"no\"",
          "XDG_DESKTOP_DIR=\"/no", "XDG_DESKTOP_DIR", "XDG_DESKTOP_DIR=", "XDG_DESKTOP_DIR=\"",
          "XDG_DESKTOP_DIR=\"\"", "XDG_DESKTOP_DIRS=\"/no\"", "XXDG_DESKTOP_DIR=\"/no\"",
          "xdg_desktop_dir=\"/no\"", "XDG_DESKTOP_DIR=\"$HOMER/no\"", "XDG_DESKTOP_DIR=\"~/no\"",
          "XDG_DESKTOP_DIR=\"$XDG_DATA_HOME/no\"", "export XDG_DESKTOP_DIR=\"/no\""}) {
        EXPECT_EQ(folderIn(text), usual) << text;
    }
}

TEST(UserDirs, allowBlanksWhereAShellWouldNotMind) {
    EXPECT_EQ(folderIn("  \tXDG_DESKTOP_DIR = \"/a b\" # why\r\n"), "/a b");
}

TEST(UserDirs, countByTheLastLineThatCanBeUnderstood) {
    EXPECT_EQ(folderIn("XDG_DESKTOP_DIR=\"/a\"\nXDG_DESKTOP_DIR=\"/b\"\nXDG_DESKTOP_DIR=c\n"),
              "/b");
}

TEST(UserDirs, areReadAsAShellReadsThem) {
    EXPECT_EQ(folderIn("XDG_DESKTOP_DIR=\"/a\\\"b\\\\c\\$d\""), "/a\"b\\c$d");
    EXPECT_EQ(folderIn("XDG_DESKTOP_DIR=\"/a\\"), usual) << "a quote is missing";
}

TEST(UserDirs, keepNamesThatAreNotUtf8) {
    EXPECT_EQ(folderIn("XDG_DESKTOP_DIR=\"$HOME/B\xFCro\""), "/home/ada/B\xFCro");
}

TEST(UserDirs, dropSlashesThatSayNothing) {
    EXPECT_EQ(folderIn("XDG_DESKTOP_DIR=\"$HOME//Desk//top//\""), "/home/ada/Desk/top");
    EXPECT_EQ(folderIn("XDG_DESKTOP_DIR=\"//\""), "/");
}

TEST(UserDirs, thatPointAtTheHomeTellThatThereIsNoDesktop) {
    for (const char *text : {"XDG_DESKTOP_DIR=\"$HOME/\"", "XDG_DESKTOP_DIR=\"$HOME\"",
                             "XDG_DESKTOP_DIR=\"/home/ada\"", "XDG_DESKTOP_DIR=\"/home//ada/\""}) {
        EXPECT_EQ(folderIn(text), std::nullopt) << text;
    }
    EXPECT_EQ(desktopFolderIn("XDG_DESKTOP_DIR=\"$HOME/\"", "/home/ada/"), std::nullopt);
}

TEST(UserDirs, knowNoDesktopWithoutAHomeUnlessTheyNameOne) {
    EXPECT_EQ(desktopFolderIn("", ""), std::nullopt);
    EXPECT_EQ(desktopFolderIn("XDG_DESKTOP_DIR=\"$HOME/Desktop\"", ""), std::nullopt);
    EXPECT_EQ(desktopFolderIn("XDG_DESKTOP_DIR=\"/a\"", ""), "/a");
}

TEST(UserDirs, dropPathsThatNoKernelTakes) {
    const QByteArray start = "XDG_DESKTOP_DIR=\"/";
    EXPECT_EQ(desktopFolderIn(start + QByteArray(5000, 'x') + '"', "/home/ada"), usual);
    EXPECT_EQ(desktopFolderIn(start + QByteArray("a\0b", 3) + '"', "/home/ada"), usual);
}

class UserDirsFile : public testing::Test {
protected:
    QByteArray folder() const { return QFile::encodeName(m_folder.path()); }
    QByteArray path() const { return folder() + "/user-dirs.dirs"; }
    void write(const QByteArray &bytes) {
        QFile file(QFile::decodeName(path()));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    std::optional<QByteArray> found() { return findDesktopFolder(folder(), "/home/ada"); }

private:
    QTemporaryDir m_folder;
};

TEST_F(UserDirsFile, isReadFromTheFolderOfSettings) {
    write("XDG_DESKTOP_DIR=\"$HOME/Bureau\"\n");
    EXPECT_EQ(found(), "/home/ada/Bureau");
}

TEST_F(UserDirsFile, isFollowedThroughALink) {
    write("XDG_DESKTOP_DIR=\"$HOME/Bureau\"\n");
    ASSERT_EQ(::rename(path().constData(), (folder() + "/kept").constData()), 0);
    ASSERT_EQ(::symlink("kept", path().constData()), 0);
    EXPECT_EQ(found(), "/home/ada/Bureau");
}

TEST_F(UserDirsFile, thatIsMissingLeavesTheUsualFolder) {
    EXPECT_EQ(found(), usual);
}

TEST_F(UserDirsFile, thatIsAFolderLeavesTheUsualFolder) {
    ASSERT_EQ(::mkdir(path().constData(), 0700), 0);
    EXPECT_EQ(found(), usual);
}

TEST_F(UserDirsFile, thatIsAPipeIsNotWaitedFor) {
    ASSERT_EQ(::mkfifo(path().constData(), 0600), 0);
    EXPECT_EQ(found(), usual);
}

TEST_F(UserDirsFile, isReadUpToALimit) {
    write(QByteArray(70'000, '\n') + "XDG_DESKTOP_DIR=\"/late\"\n");
    EXPECT_EQ(found(), usual);
}

} // namespace

} // namespace zeph
