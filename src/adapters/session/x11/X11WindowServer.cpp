// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11WindowServer.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11DesktopSurface.h"

#include <utility>

namespace zeph {

namespace {

constexpr std::uint8_t kOpaque = 24;
constexpr std::uint8_t kWithAlpha = 32;

} // namespace

std::unique_ptr<X11WindowServer> X11WindowServer::create(X11Connection &connection) {
    const auto opaque = findVisual(connection, kOpaque);
    return opaque ? std::unique_ptr<X11WindowServer>(new X11WindowServer(connection, *opaque))
                  : nullptr;
}

X11WindowServer::X11WindowServer(X11Connection &connection, const X11Visual &opaque)
    : m_connection(connection),
      m_opaque(opaque),
      m_withAlpha(findVisual(connection, kWithAlpha)),
      m_compositor(connection),
      m_stacking(connection) {}

std::unique_ptr<DesktopSurface> X11WindowServer::makeDesktopSurface(const Screen &screen,
                                                                    bool wantsTransparency) {
    // Without a compositor alpha is ignored, and every other surface is cheaper opaque.
    const bool isTransparent = wantsTransparency && m_withAlpha && m_compositor.isRunning();
    return std::make_unique<X11DesktopSurface>(m_connection, m_stacking,
                                               isTransparent ? *m_withAlpha : m_opaque, screen);
}

Subscription X11WindowServer::subscribeToCompositing(std::function<void()> handler) {
    return m_compositor.subscribe(std::move(handler));
}

Subscription X11WindowServer::subscribeToLoss(std::function<void()> handler) {
    return m_connection.subscribeToLoss(std::move(handler));
}

} // namespace zeph
