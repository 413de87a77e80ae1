// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/FrontApplication.h"
#include "adapters/session/sway/SwayAnswers.h"
#include "adapters/session/sway/SwayIpc.h"

namespace zeph {

/// The application of the window that has the focus in sway.
class SwayWorkspace : public Workspace {
public:
    /// Both outlive this. None is in front before sway's first answer, nor once it hung up.
    SwayWorkspace(SwayIpc &ipc, DesktopEntries &entries);

    std::optional<RunningApplication> frontmostApplication() const override {
        return m_front.now();
    }
    Subscription
    subscribeToActivations(std::function<void(const RunningApplication &)> handler) override;

private:
    void start();
    void follow(SwayEvent kind, const QByteArray &payload);
    void windowChanged(const SwayWindowChange &event);
    void setFocused(const std::optional<SwayWindowFacts> &window);

    SwayIpc &m_ipc;
    FrontApplication m_front;
    std::optional<quint64> m_focused; // id of the window
    bool m_isTold = false;            // of the focus, since the conversation began
    Subscription m_starts;
    Subscription m_ends;
    Subscription m_windows;
    Subscription m_events;
};

} // namespace zeph
