// SPDX-License-Identifier: MIT
#include "adapters/session/loss/SocketWatch.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace zeph {

namespace {

constexpr std::chrono::milliseconds kLongWatch = 20s;

class SocketWatchTest : public testing::Test {
protected:
    SocketWatchTest() { timer.start(); }

    void make(const char *name) const {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    bool isWokenUp() const {
        return watch.wait(kLongWatch) && timer.elapsed() < kLongWatch.count() / 2;
    }

    const QTemporaryDir folder;
    const SocketWatch watch{{QFile::encodeName(folder.path()), "wayland-1"}};
    QElapsedTimer timer;
};

} // namespace

TEST_F(SocketWatchTest, tellsOnceThatTheSocketWasMade) {
    EXPECT_FALSE(watch.wait(0ms));
    make("wayland-1");
    EXPECT_TRUE(isWokenUp());
    EXPECT_FALSE(watch.wait(0ms));
}

TEST_F(SocketWatchTest, tellsNothingOfOtherFiles) {
    make("wayland-1.lock");
    make("wayland-11");
    EXPECT_FALSE(watch.wait(0ms));
    make("bus");
    make("wayland-1");
    EXPECT_TRUE(isWokenUp());
}

TEST_F(SocketWatchTest, tellsThatTheFolderIsGone) {
    QDir(folder.path()).removeRecursively();
    EXPECT_TRUE(isWokenUp());
}

TEST_F(SocketWatchTest, onlyWaitsWhereThereIsNoFolder) {
    const SocketWatch nowhere({"/nonexistent", "wayland-1"});
    EXPECT_FALSE(nowhere.wait(30ms));
    EXPECT_GE(timer.elapsed(), 30);
}

} // namespace zeph
