// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11EventListener.h"
#include "ports/VirtualDesktops.h"

namespace zeph {

/// The workspaces as the window manager tells of them, followed by notices. None are known before
/// the X server's first answer, which nothing waits for.
class X11VirtualDesktops : public VirtualDesktops, private X11EventListener {
public:
    explicit X11VirtualDesktops(X11Connection &connection);

    std::vector<VirtualDesktop> all() const override { return m_all; }
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void read();
    void take(const X11Connection::Replies &replies);

    std::vector<VirtualDesktop> m_all;
    bool m_isReading = false;
    bool m_readsAgain = false;
    ChangePublisher m_changes;
};

} // namespace zeph
