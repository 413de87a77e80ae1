// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/RemovalWatch.h"

#include "support/ManualRunLoop.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace zeph {

class RemovalWatchTest : public testing::Test {
protected:
    void put(const QString &name) const {
        QFile file(room.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    /// Long enough for whatever was noticed.
    void pass() {
        runLoopFor(std::chrono::milliseconds(50));
        loop.advance(10.1);
    }

    const QTemporaryDir room;
    const QString path = room.filePath(u"program"_s);
    ManualClock clock;
    ManualRunLoop loop{clock};
    int removals = 0;
};

TEST_F(RemovalWatchTest, tellsOnceThatTheFileIsGone) {
    put(u"program"_s);
    const RemovalWatch watch(path, loop, [this] { ++removals; });
    QFile::remove(path);
    EXPECT_TRUE(waitUntil([&] {
        loop.advance(10.1);
        return removals > 0;
    }));
    put(u"program"_s);
    QFile::remove(path);
    pass();
    EXPECT_EQ(removals, 1);
}

TEST_F(RemovalWatchTest, anUpdateIsNoRemovalAndIsFollowed) {
    put(u"program"_s);
    const RemovalWatch watch(path, loop, [this] { ++removals; });
    QFile::remove(path);
    runLoopFor(std::chrono::milliseconds(50));
    put(u"program"_s);
    loop.advance(10.1);
    EXPECT_EQ(removals, 0);
    QFile::remove(path);
    EXPECT_TRUE(waitUntil([&] {
        loop.advance(10.1);
        return removals > 0;
    }));
}

} // namespace zeph
