// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11Selection.h"
#include "adapters/tray/DockedWindow.h"

namespace zeph {

/// An item of the tray as a window of the X server, docked in whatever program collects such
/// windows. It is there as soon as there is one, and again when that restarts. Main thread only.
class DockedItem : public StatusItem {
public:
    /// Null where the display (empty: that of the environment) can't be reached. `facts` and
    /// `tools` outlive the item. A few round trips.
    static std::unique_ptr<DockedItem> make(const TrayFacts &facts, const TrayTools &tools,
                                            const QByteArray &display = {});

    /// Null while nobody collects such windows.
    const DockedWindow *window() const { return m_window.get(); }

private:
    DockedItem(std::unique_ptr<X11Connection> connection, const TrayFacts &facts,
               const TrayTools &tools);

    void dock();

    // One of its own: the wallpaper's is not there on every display system that has such trays.
    std::unique_ptr<X11Connection> m_connection;
    const TrayFacts &m_facts;
    const TrayTools &m_tools;
    X11Selection m_tray;
    std::unique_ptr<DockedWindow> m_window;
    Subscription m_changes;
};

} // namespace zeph
