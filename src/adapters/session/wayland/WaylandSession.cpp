// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandSession.h"

#include "adapters/session/wayland/UnknownParts.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// What `make` makes, or the one that knows nothing.
template <typename Unknown, typename Make, typename... Arguments>
auto madeOrUnknown(const Make &make, Arguments &...arguments) -> typename Make::result_type {
    return make ? make(arguments...) : std::make_unique<Unknown>();
}

} // namespace

OpenedSession WaylandSession::open(const Surroundings &surroundings, const QByteArray &display,
                                   std::chrono::milliseconds patience) {
    auto opened = WaylandConnection::open(display, patience);
    if (!opened.connection) {
        return {nullptr, opened.refusal};
    }
    auto shell = LayerShell::bind(*opened.connection);
    if (!shell) {
        return {nullptr, u"the Wayland compositor has no place for a wallpaper"_s};
    }
    return {std::unique_ptr<WaylandSession>(
                new WaylandSession(std::move(opened.connection), std::move(*shell), surroundings)),
            {}};
}

WaylandSession::WaylandSession(std::unique_ptr<WaylandConnection> connection, LayerShell shell,
                               const Surroundings &surroundings)
    : m_connection(std::move(connection)),
      m_outputs(*m_connection, shell.abilities()),
      m_windowServer(*m_connection, std::move(shell), m_outputs),
      m_workspace(madeOrUnknown<UnknownWorkspace>(surroundings.makeWorkspace, *m_connection)),
      m_inputEvents(madeOrUnknown<UnknownInputEvents>(surroundings.makeInputEvents, *m_connection)),
      m_virtualDesktops(madeOrUnknown<NoVirtualDesktops>(surroundings.makeVirtualDesktops,
                                                         *m_connection, m_outputs)) {}

} // namespace zeph
