// SPDX-License-Identifier: MIT
#include "adapters/session/open/ProtocolParts.h"

#include "adapters/session/open/OpenSession.h"
#include "adapters/session/wayland/ForeignToplevels.h"
#include "adapters/session/wayland/WaylandIdle.h"

namespace zeph {

namespace {

std::unique_ptr<Workspace> makeWorkspace(WaylandConnection &connection, DesktopEntries &entries) {
    auto toplevels = ForeignToplevels::create(connection, entries);
    if (toplevels) {
        return toplevels;
    }
    return std::make_unique<UnknownWorkspace>();
}

} // namespace

ProtocolParts::ProtocolParts(const SessionSurroundings &surroundings, WaylandConnection &connection)
    : m_workspace(makeWorkspace(connection, surroundings.entries)),
      m_inputEvents(std::make_unique<WaylandIdle>(connection), surroundings.inputConsent) {}

} // namespace zeph
