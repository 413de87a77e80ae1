// SPDX-License-Identifier: MIT
#pragma once

#include "FakeKWin.h"

#include "adapters/session/kwin/KWinScript.h"

#include <optional>

namespace zeph {

/// A KWin that the test plays, and our script in it.
class PlayedKWinTest : public testing::Test {
protected:
    static QString scriptName() { return QStringLiteral("com.tavi.Tavi.windows"); }

    /// Until the script runs in the KWin that is there.
    void open() {
        if (!script) {
            script.emplace(ours.bus(), folder.path());
        }
        ASSERT_TRUE(eventually([&] { return kwin.runs.size() == 1; }));
    }

    QTemporaryDir folder;
    PrivateBus bus;
    BusConnection ours{bus.address()};
    FakeKWin kwin{bus.address()};
    std::optional<KWinScript> script;
};

} // namespace zeph
