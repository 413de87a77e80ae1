// SPDX-License-Identifier: MIT
#include "TaviFixture.h"

namespace zeph {

using ClockTest = TaviTest;

TEST_F(ClockTest, showsThePresentTime) {
    startWindowManager();
    writeSettings(R"({"zeph.clock.24h": true})");
    const Program tavi(environment());
    ASSERT_TRUE(waitForWallpaper());
    QString shown;
    // The minute may turn between the picture and the look at the time.
    EXPECT_TRUE(waitUntil(
        [&] {
            shown = readClock(screenshot());
            return shown == localTime();
        },
        kClockPatience))
        << "read \"" << shown.toStdString() << "\" at " << localTime().toStdString();
}

} // namespace zeph
