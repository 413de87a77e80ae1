// SPDX-License-Identifier: MIT
#include "adapters/session/sway/SwayWorkspaceList.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// Windows come, go and move with gaps around them. Titles change all the time.
bool mayMoveEdges(const SwayWindowChange &event) {
    return event.change == u"new" || event.change == u"close" || event.change == u"focus" ||
           event.change == u"move";
}

} // namespace

SwayWorkspaceList::SwayWorkspaceList(SwayIpc &ipc)
    : m_ipc(ipc),
      m_starts(ipc.subscribeToStart([this] {
          m_isReading = false; // what was asked is not answered any more
          read();
      })),
      m_windows(ipc.subscribeToWindows([this](const SwayWindowChange &event) {
          if (mayMoveEdges(event)) {
              read();
          }
      })),
      m_events(ipc.subscribeToEvents(
          [this](SwayEvent /*kind*/, const QByteArray & /*payload*/) { read(); })) {
    read();
}

void SwayWorkspaceList::read() {
    if (!m_ipc.isConnected()) {
        return;
    }
    if (std::exchange(m_isReading, true)) {
        m_readsAgain = true;
        return;
    }
    m_readsAgain = false;
    m_ipc.ask(SwayRequest::workspaces, [this](const QByteArray &payload) { take(payload); });
}

void SwayWorkspaceList::take(const QByteArray &payload) {
    m_isReading = false;
    if (m_readsAgain) {
        read();
    }
    const auto workspaces = swayWorkspacesIn(payload);
    if (workspaces && std::exchange(m_all, *workspaces) != *workspaces) {
        m_changes.send();
    }
}

} // namespace zeph
