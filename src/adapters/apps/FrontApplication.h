// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/ApplicationIndex.h"
#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "ports/Workspace.h"

#include <functional>
#include <optional>

namespace zeph {

class DesktopEntries;

/// The application in front, from what its window tells of it: the part of a `Workspace` that all
/// display systems share. Asking costs nothing. Main thread only.
class FrontApplication {
public:
    explicit FrontApplication(DesktopEntries &entries);

    const std::optional<RunningApplication> &now() const { return m_front; }

    /// Another window came to the front, or none. While the entries are read anew the application
    /// before stays, so that the new one does not count as two. One without an entry is called by
    /// its window class, else by its program.
    void set(const std::optional<ApplicationHints> &hints);

    /// Calls `handler` with each application that comes to the front.
    [[nodiscard]] Subscription
    subscribeToActivations(std::function<void(const RunningApplication &)> handler);

    /// Calls `handler` after every change, also when there is none in front any more.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    void find();
    void take(std::optional<RunningApplication> front);

    DesktopEntries &m_entries;
    std::optional<ApplicationHints> m_hints;
    std::optional<RunningApplication> m_front;
    quint64 m_turn = 0; // of the hints
    ChangePublisher m_activations;
    ChangePublisher m_changes;
    Subscription m_entriesChanges;
    WorkOwner m_questions;
};

} // namespace zeph
