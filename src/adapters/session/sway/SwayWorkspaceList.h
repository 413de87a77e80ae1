// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/sway/SwayAnswers.h"
#include "adapters/session/sway/SwayIpc.h"

namespace zeph {

/// The workspaces of sway and what panels leave of them, kept up to date by its events. None are
/// known before the first answer. Main thread only.
class SwayWorkspaceList {
public:
    /// `ipc` outlives this.
    explicit SwayWorkspaceList(SwayIpc &ipc);

    const std::vector<SwayWorkspaceFacts> &all() const { return m_all; }

    /// Asks for them anew, for what sway tells of in no event of its own: that a panel came.
    void lookAgain() { read(); }

    /// Calls `handler` after every change of them.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) {
        return m_changes.subscribe(std::move(handler));
    }

private:
    void read();
    void take(const QByteArray &payload);

    SwayIpc &m_ipc;
    std::vector<SwayWorkspaceFacts> m_all;
    bool m_isReading = false;
    bool m_readsAgain = false;
    ChangePublisher m_changes;
    Subscription m_starts;
    Subscription m_windows;
    Subscription m_events;
};

} // namespace zeph
