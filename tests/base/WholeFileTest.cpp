// SPDX-License-Identifier: MIT
#include "base/WholeFile.h"

#include "support/FileMode.h"
#include "support/FullDisk.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace zeph {

namespace {

class WholeFileTest : public testing::Test {
protected:
    QString path() const { return m_folder.filePath(u"a"_s); }
    QStringList files() const {
        return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden);
    }
    QByteArray content() const {
        QFile file(path());
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        return file.readAll();
    }

private:
    QTemporaryDir m_folder;
};

} // namespace

TEST_F(WholeFileTest, aNewOneHasTheWantedMode) {
    const NoUmask open;
    EXPECT_EQ(writeWhole(path(), "new", QFile::ReadOwner | QFile::WriteOwner), std::nullopt);
    EXPECT_EQ(content(), "new");
    EXPECT_EQ(fileMode(path()), 0600);
}

TEST_F(WholeFileTest, aReplacedOneKeepsItsModeWhereNoneIsWanted) {
    ASSERT_EQ(writeWhole(path(), "old", QFile::ReadOwner | QFile::WriteOwner | QFile::ReadOther),
              std::nullopt);
    EXPECT_EQ(writeWhole(path(), "new"), std::nullopt);
    EXPECT_EQ(content(), "new");
    EXPECT_EQ(fileMode(path()), 0604);
}

TEST_F(WholeFileTest, aFullDiskLeavesTheOldOneWhole) {
    ASSERT_EQ(writeWhole(path(), "old"), std::nullopt);
    for (const int size : {2000, 200'000}) {
        const FullDisk full(1024);
        const auto reason = writeWhole(path(), QByteArray(size, 'x'));
        ASSERT_TRUE(reason);
        EXPECT_FALSE(reason->isEmpty());
    }
    EXPECT_EQ(content(), "old");
    EXPECT_THAT(files(), ElementsAre(u"a"_s));
}

TEST_F(WholeFileTest, withoutAFolderTheReasonIsTold) {
    const auto reason = writeWhole(path() + u"/b"_s, "new");
    ASSERT_TRUE(reason);
    EXPECT_FALSE(reason->isEmpty());
}

TEST_F(WholeFileTest, aLinkStaysOne) {
    const QString target = path() + u".target"_s;
    ASSERT_TRUE(QFile::link(target, path()));
    EXPECT_EQ(writeWhole(path(), "new"), std::nullopt);
    EXPECT_TRUE(QFileInfo(path()).isSymLink());
    EXPECT_EQ(content(), "new");
    EXPECT_TRUE(QFileInfo::exists(target));
}

} // namespace zeph
