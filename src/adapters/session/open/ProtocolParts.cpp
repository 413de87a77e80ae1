// SPDX-License-Identifier: MIT
#include "adapters/session/open/ProtocolParts.h"

#include "adapters/session/open/OpenSession.h"
#include "adapters/session/wayland/ForeignToplevels.h"
#include "adapters/session/wayland/WaylandIdle.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// The toolkit names our windows so, after our desktop entry.
const QString kOwnApplication = u"com.tavi.Tavi"_s;

std::unique_ptr<Workspace> makeWorkspace(WaylandConnection &connection, DesktopEntries &entries) {
    auto toplevels = ForeignToplevels::create(connection, entries, kOwnApplication);
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
