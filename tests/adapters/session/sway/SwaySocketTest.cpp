// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwaySocket.h"

#include "support/QtPrinters.h"

#include <gtest/gtest.h>

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

} // namespace zeph
