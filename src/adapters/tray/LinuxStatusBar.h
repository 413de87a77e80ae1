// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/tray/TrayTools.h"

#include <QDBusConnection>

namespace zeph {

/// The tray of Linux desktops: items on the session bus, where the desktop has a host for them, and
/// docked windows of the X server where it does not. An item moves as hosts come and go.
class LinuxStatusBar : public StatusBar {
public:
    /// Makes an item as a docked window; may answer null where there is no such thing.
    using MakeDocked =
        std::function<std::unique_ptr<StatusItem>(const TrayFacts &, const TrayTools &)>;

    LinuxStatusBar(QDBusConnection sessionBus, TrayTools tools, MakeDocked makeDocked);

    /// At most one at a time.
    std::unique_ptr<StatusItem> makeItem(const QString &symbol, const QString &description,
                                         std::vector<MenuItem> menu) override;

private:
    QDBusConnection m_bus;
    TrayTools m_tools;
    MakeDocked m_makeDocked;
};

} // namespace zeph
