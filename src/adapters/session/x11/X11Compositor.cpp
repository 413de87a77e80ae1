// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Compositor.h"

#include "adapters/session/x11/X11Connection.h"

#include <utility>

namespace zeph {

X11Compositor::X11Compositor(X11Connection &connection)
    : m_selection(connection, "_NET_WM_CM_S" + QByteArray::number(connection.screenNumber())),
      m_isRunning(m_selection.owner() != XCB_WINDOW_NONE),
      m_owners(m_selection.subscribe([this] {
          const bool isRunning = m_selection.owner() != XCB_WINDOW_NONE;
          if (std::exchange(m_isRunning, isRunning) != isRunning) {
              m_changes.send();
          }
      })) {}

Subscription X11Compositor::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

} // namespace zeph
