// SPDX-License-Identifier: MIT
#pragma once

#include "FakeSway.h"

#include "adapters/apps/InstalledEntries.h"
#include "adapters/session/sway/SwayIpc.h"
#include "support/ManualClock.h"
#include "support/ManualRunLoop.h"
#include "support/QtPrinters.h"

namespace zeph {

/// A conversation with a sway that the test plays.
class PlayedSwayTest : public testing::Test {
protected:
    static constexpr quint32 kWorkspaces = 1;
    static constexpr quint32 kTree = 4;
    static constexpr quint32 kVersion = 7;
    static constexpr quint32 kWorkspaceEvent = 0;
    static constexpr quint32 kWindowEvent = 3;

    /// Runs the loop until all that was asked is answered, and all told before is heard.
    void settle() {
        bool isAnswered = false;
        ipc.ask(SwayRequest::subscribe, [&](const QByteArray &) { isAnswered = true; });
        ASSERT_TRUE(waitUntil([&] { return isAnswered; }));
    }

    ManualClock clock;
    ManualRunLoop runLoop{clock};
    FakeSway sway;
    SwayIpc ipc{runLoop, sway.path()};
};

} // namespace zeph
