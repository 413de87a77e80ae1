// SPDX-License-Identifier: MIT
#include "adapters/session/loss/DisplayWait.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace zeph {

namespace {

using std::chrono::milliseconds;

// Far more than anything here takes: only a wait that is not woken lasts so long.
constexpr milliseconds kLong = 20s;

class DisplayWaitTest : public testing::Test {
protected:
    DisplaySocket socket() const { return {QFile::encodeName(folder.path()), "wayland-1"}; }

    void make(const char *name) const {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    bool hasMoved(const QElapsedTimer &timer) const { return timer.elapsed() < kLong.count() / 2; }

    const QTemporaryDir folder;
    int looks = 0;
};

} // namespace

TEST_F(DisplayWaitTest, isOverAtOnceWhereTheDisplayAnswers) {
    EXPECT_TRUE(waitForDisplay(
        socket(), [this](milliseconds) { return ++looks == 1; }, kLong));
}

TEST_F(DisplayWaitTest, isOverWhenTheSocketIsMadeAnew) {
    QElapsedTimer timer;
    timer.start();
    const auto look = [this](milliseconds) {
        if (++looks == 1) {
            make("wayland-1");
        }
        return looks > 1;
    };
    EXPECT_TRUE(waitForDisplay(socket(), look, kLong));
    EXPECT_TRUE(hasMoved(timer));
}

TEST_F(DisplayWaitTest, looksAgainAtASocketThatNobodyListensToYet) {
    QElapsedTimer timer;
    timer.start();
    const auto look = [this](milliseconds) {
        if (++looks == 1) {
            make("wayland-1");
        }
        return looks > 3;
    };
    EXPECT_TRUE(waitForDisplay(socket(), look, kLong));
    EXPECT_TRUE(hasMoved(timer));
}

TEST_F(DisplayWaitTest, endsWithItsPatience) {
    const auto look = [this](milliseconds left) {
        ++looks;
        EXPECT_LE(left, 150ms);
        return false;
    };
    EXPECT_FALSE(waitForDisplay(socket(), look, 150ms));
    EXPECT_GE(looks, 2) << "at the end it is looked at once more";
}

TEST_F(DisplayWaitTest, endsWithTheFolderOfTheSession) {
    QElapsedTimer timer;
    timer.start();
    const auto look = [this](milliseconds) {
        EXPECT_EQ(++looks, 1);
        QDir(folder.path()).removeRecursively();
        return false;
    };
    EXPECT_FALSE(waitForDisplay(socket(), look, kLong));
    EXPECT_TRUE(hasMoved(timer));
}

TEST(RestBeforeNextLookTest, isShortOnlyAfterNews) {
    EXPECT_EQ(restBeforeNextLook(0ms, 20s), 100ms);
    EXPECT_EQ(restBeforeNextLook(1999ms, 20s), 100ms);
    EXPECT_EQ(restBeforeNextLook(2000ms, 18s), 18s);
    EXPECT_EQ(restBeforeNextLook(10ms, 30ms), 30ms);
}

} // namespace zeph
