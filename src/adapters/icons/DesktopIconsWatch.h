// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/FolderMonitor.h"
#include "adapters/icons/IconStore.h"
#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"

#include <QTimer>

#include <optional>

namespace zeph {

class Background;

/// The icons of the desktop, followed while somebody wants to know. Main thread only.
class DesktopIconsWatch {
public:
    /// `background` outlives this. Reads nothing until it is switched on.
    DesktopIconsWatch(std::optional<IconStore> store, const Background &background);

    /// Follows the icons from now on, or forgets them.
    void setOn(bool isOn);

    /// Whether they lie above a desktop window of ours.
    bool areAboveDesktopWindows() const { return m_store && m_store->areAboveDesktopWindows(); }

    /// None until they were read.
    const DesktopIcons &icons() const { return m_icons; }

    /// Calls `handler` whenever `icons` changed.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    void read();
    void take(DesktopIcons icons);

    std::optional<IconStore> m_store;
    const Background &m_background;
    bool m_isOn = false;
    DesktopIcons m_icons;
    ChangePublisher m_changes;
    std::optional<FolderMonitor> m_monitor;
    QTimer m_rest; // from a change until the arrangement is read again
    WorkOwner m_work{1};
};

} // namespace zeph
