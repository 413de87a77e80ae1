// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "model/DesktopSummary.h"

#include <QByteArray>

#include <functional>
#include <optional>
#include <utility>

namespace zeph {

class Background;
class DesktopFolder;

/// Counts what lies on the user's Desktop, flat: the content of folders is never visited. The
/// counting is done away from the main thread, and only its sum comes back: a Desktop can hold many
/// thousand names, or lie on a disk that hangs. Main thread only.
class DesktopMonitor {
public:
    /// Where the Desktop is, is found here once. `folder` outlives the threads of `background`.
    DesktopMonitor(const DesktopFolder &folder, const Background &background);

    /// Begins to renew the summary, unless that is under way. Where the folder can't be listed it
    /// stays as it was.
    void sample();

    const DesktopSummary &summary() const { return m_summary; }

    /// Calls `handler` after each renewal, until the subscription ends.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) {
        return m_renewals.subscribe(std::move(handler));
    }

private:
    const DesktopFolder &m_folder;
    const Background &m_background;
    std::optional<QByteArray> m_desktopURL;
    DesktopSummary m_summary;
    ChangePublisher m_renewals;
    WorkOwner m_census{1};
};

} // namespace zeph
