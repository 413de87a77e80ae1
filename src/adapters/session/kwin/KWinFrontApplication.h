// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/FrontApplication.h"
#include "adapters/session/kwin/KWinScript.h"

namespace zeph {

class RunLoop;

/// The application of the window that is active in KWin.
class KWinFrontApplication : public Workspace {
public:
    /// All outlive this.
    KWinFrontApplication(KWinScript &script, DesktopEntries &entries, RunLoop &runLoop);

    std::optional<RunningApplication> frontmostApplication() const override {
        return m_front.now();
    }
    Subscription
    subscribeToActivations(std::function<void(const RunningApplication &)> handler) override;

private:
    void windowActivated(const std::optional<KWinWindow> &window);

    RunLoop &m_runLoop;
    FrontApplication m_front;
    quint64 m_turn = 0; // of the windows
    WorkOwner m_owner;
    Subscription m_windows;
};

} // namespace zeph
