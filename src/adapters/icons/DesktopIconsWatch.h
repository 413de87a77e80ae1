// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/FolderMonitor.h"
#include "adapters/bus/BusService.h"
#include "adapters/icons/IconStore.h"
#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"

#include <QTimer>

#include <memory>
#include <optional>

namespace zeph {

class Background;

/// The icons of the desktop, followed while somebody wants to know. Main thread only.
class DesktopIconsWatch {
public:
    /// `background` outlives this. Reads nothing until it is switched on. `sessionBus` is where
    /// the store's service comes and goes.
    DesktopIconsWatch(std::optional<IconStore> store, const Background &background,
                      QDBusConnection sessionBus);

    /// Follows the icons from now on, or forgets them.
    void setOn(bool isOn);

    /// Whether they lie above a desktop window of ours.
    bool areAboveDesktopWindows() const { return m_store && m_store->areAboveDesktopWindows(); }

    /// None until they were read.
    const DesktopIcons &icons() const { return m_icons; }

    /// Calls `handler` whenever `icons` changed.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    /// What was read, and the monitor that notices what changed since.
    struct Reading {
        std::unique_ptr<FolderMonitor> monitor;
        DesktopIcons icons;
    };

    void begin();
    void end();
    void serviceChanged();
    void read();
    void takeReading(Reading reading);
    void takeRead(DesktopIcons icons);
    void take(DesktopIcons icons);

    std::optional<IconStore> m_store;
    const Background &m_background;
    QDBusConnection m_sessionBus;
    bool m_isOn = false;
    bool m_areTold = false; // what is known is no guess
    int m_guesses = 0;      // in a row, of a service that is there
    DesktopIcons m_icons;
    ChangePublisher m_changes;
    std::unique_ptr<FolderMonitor> m_monitor;
    QTimer m_rest; // from a change until the arrangement is read again
    WorkOwner m_work{1};
    std::optional<BusService> m_service; // last, since it calls back
};

} // namespace zeph
