// SPDX-License-Identifier: MIT
#include "adapters/session/open/SwayParts.h"

#include "adapters/session/open/OpenSession.h"
#include "adapters/session/wayland/WaylandIdle.h"
#include "adapters/session/wayland/WaylandOutputs.h"

namespace zeph {

SwayParts::SwayParts(const SessionSurroundings &surroundings, WaylandConnection &connection,
                     WaylandOutputs &outputs, const QString &socket)
    : m_ipc(surroundings.runLoop, socket),
      m_workspace(m_ipc, surroundings.entries),
      m_list(m_ipc),
      m_insets(m_ipc, m_list),
      m_virtualDesktops(m_list,
                        [&outputs](const QString &name) { return outputs.identityOf(name); }),
      m_inputEvents(std::make_unique<WaylandIdle>(connection), surroundings.inputConsent),
      m_edges(connection, outputs, [this] { m_list.lookAgain(); }) {}

} // namespace zeph
