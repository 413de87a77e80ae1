// SPDX-License-Identifier: MIT
#include "adapters/storage/FolderLock.h"

#include "support/FileMode.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>
#include <thread>

namespace zeph {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class FolderLockTest : public testing::Test {
protected:
    QString folder() const { return base.filePath(u"data/Zeph"_s); }

    QTemporaryDir base;
};

TEST_F(FolderLockTest, isHadByOneAtATime) {
    auto first = std::make_unique<FolderLock>(folder(), 0ms);
    EXPECT_FALSE(first->isHeldByAnother());
    EXPECT_TRUE(FolderLock(folder(), 0ms).isHeldByAnother());
    EXPECT_TRUE(FolderLock(folder(), 1ms).isHeldByAnother());
    first.reset();
    EXPECT_FALSE(FolderLock(folder(), 0ms).isHeldByAnother());
}

TEST_F(FolderLockTest, isForTheUserAlone) {
    const NoUmask open_to_all;
    const FolderLock lock(folder(), 0ms);
    EXPECT_EQ(fileMode(folder()), 0700);
    EXPECT_EQ(fileMode(folder() + u"/zeph.lock"_s), 0600);
}

TEST_F(FolderLockTest, leavesWhatStandsThereAsItIs) {
    FolderLock(folder(), 0ms);
    QFile file(folder() + u"/zeph.lock"_s);
    ASSERT_TRUE(file.open(QFile::ReadWrite) && file.write("x") == 1 && file.flush());
    const FolderLock lock(folder(), 0ms);
    EXPECT_FALSE(lock.isHeldByAnother());
    EXPECT_EQ(file.size(), 1);
}

TEST_F(FolderLockTest, waitsForAProcessThatIsEnding) {
    auto ending = std::make_unique<FolderLock>(folder(), 0ms);
    std::thread end([&] { ending.reset(); });
    EXPECT_FALSE(FolderLock(folder(), 20s).isHeldByAnother());
    end.join();
}

TEST_F(FolderLockTest, thatCantBeHadByAnybodyHoldsNobodyUp) {
    QFile inTheWay(base.filePath(u"data"_s));
    ASSERT_TRUE(inTheWay.open(QFile::WriteOnly));
    EXPECT_FALSE(FolderLock(folder(), 20s).isHeldByAnother());
}

} // namespace

} // namespace zeph
