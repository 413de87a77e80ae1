// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11EventListener.h"
#include "ports/VirtualDesktops.h"

namespace zeph {

/// The workspaces as the window manager tells of them, the same for all displays, followed by
/// notices. None are known before the X server's first answer, which nothing waits for.
class X11VirtualDesktops : public VirtualDesktops, private X11EventListener {
public:
    explicit X11VirtualDesktops(X11Connection &connection);

    std::vector<ManagedDisplay> managedDisplays() const override { return m_displays; }
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void read();
    void take(const X11Connection::Replies &replies);

    std::vector<ManagedDisplay> m_displays; // one, or none
    bool m_isReading = false;
    bool m_readsAgain = false;
    ChangePublisher m_changes;
};

} // namespace zeph
