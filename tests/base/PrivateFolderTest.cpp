// SPDX-License-Identifier: MIT
#include "base/PrivateFolder.h"

#include "support/FileMode.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(PrivateFolder, isForTheUserAlone) {
    const NoUmask open;
    const QTemporaryDir room;
    const QString folder = room.filePath(u"a/b"_s);
    EXPECT_TRUE(makePrivateFolder(folder));
    EXPECT_EQ(fileMode(folder), 0700);
}

TEST(PrivateFolder, oneThatIsThereKeepsItsMode) {
    const QTemporaryDir room;
    ASSERT_TRUE(QFile::setPermissions(room.path(), QFile::ReadOwner | QFile::WriteOwner |
                                                       QFile::ExeOwner | QFile::ReadGroup));
    EXPECT_TRUE(makePrivateFolder(room.path()));
    EXPECT_EQ(fileMode(room.path()), 0740);
}

TEST(PrivateFolder, aFileInTheWayIsNoFolder) {
    const QTemporaryDir room;
    QFile file(room.filePath(u"a"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(makePrivateFolder(file.fileName()));
    EXPECT_FALSE(makePrivateFolder(file.fileName() + u"/b"_s));
}

TEST(PrivateFolder, isThereForEachOfTwoThatMakeItAtOnce) {
    const QTemporaryDir room;
    for (int i = 0; i < 300; ++i) {
        const QString folder = room.filePath(QString::number(i));
        std::atomic<int> ready = 0;
        const auto make = [&] {
            for (++ready; ready < 2;) {
            }
            EXPECT_TRUE(makePrivateFolder(folder));
        };
        std::thread other(make);
        make();
        other.join();
    }
}

} // namespace zeph
