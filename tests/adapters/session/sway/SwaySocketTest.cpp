// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwaySocket.h"

#include "FakeSway.h"
#include "support/QtPrinters.h"

#include <gtest/gtest.h>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace zeph {

TEST(SwaySocketTest, isNamedAfterTheProcess) {
    EXPECT_EQ(swaySocketOf(u"/run/user/1000/sway-ipc.1000.712.sock"_s, 90210),
              u"/run/user/1000/sway-ipc.1000.90210.sock"_s);
}

TEST(SwaySocketTest, staysWhereItWasToldToBe) {
    EXPECT_EQ(swaySocketOf(u"/run/user/1000/mine.sock"_s, 5), u"/run/user/1000/mine.sock"_s);
    EXPECT_EQ(swaySocketOf(u"/run/sway-ipc.1000.x.sock"_s, 5), u"/run/sway-ipc.1000.x.sock"_s);
    EXPECT_EQ(swaySocketOf({}, 5), QString());
}

TEST(SwaySocketTest, isTheCompositorsWhereTheSameProcessListensAtBoth) {
    const FakeSway sway;
    EXPECT_TRUE(isSwayOf(sway.path(), getpid()));
    EXPECT_FALSE(isSwayOf(sway.path(), getpid() + 1)) << "handed on by another session";
    EXPECT_TRUE(isSwayOf(sway.path(), std::nullopt));
}

TEST(SwaySocketTest, isNobodysOnceItsSwayIsGone) {
    FakeSway sway;
    sway.die(true);
    EXPECT_FALSE(isSwayOf(sway.path(), getpid())) << "its socket is left";
    QFile::remove(sway.path());
    EXPECT_FALSE(isSwayOf(sway.path(), getpid()));
    EXPECT_FALSE(isSwayOf(sway.path(), std::nullopt));
    EXPECT_FALSE(isSwayOf(QString(200, u'x'), getpid())) << "longer than a path can be";
}

} // namespace zeph
