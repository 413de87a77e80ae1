// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/BusService.h"
#include "adapters/tray/MenuObject.h"
#include "adapters/tray/NotifierObject.h"

namespace zeph {

/// An item of the tray for desktops that have theirs on the session bus. It registers with the
/// desktop's watcher, and with the next one when that restarts or comes later. Never waits. Main
/// thread only.
class NotifierItem {
public:
    enum class Host {
        unknown, ///< the bus has not said yet
        absent,  ///< there is no watcher, or nobody that shows its items
        present,
    };

    /// `facts` and `tools` outlive this. `changed` runs when the host became another.
    NotifierItem(QDBusConnection bus, const TrayFacts &facts, const TrayTools &tools,
                 std::function<void()> changed);
    ~NotifierItem();
    NotifierItem(const NotifierItem &) = delete;
    NotifierItem &operator=(const NotifierItem &) = delete;

    Host host() const { return m_host; }

private:
    void watcherChanged();
    void askForHost();
    void setHost(Host host);

    QDBusConnection m_bus;
    std::function<void()> m_changed;
    NotifierObject m_item;
    MenuObject m_menu;
    Host m_host = Host::unknown;
    BusService m_watcher; // last, since it calls back
};

} // namespace zeph
