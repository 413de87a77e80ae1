// SPDX-License-Identifier: MIT
#include "adapters/session/wayland/WaylandSession.h"

#include "adapters/session/wayland/UnknownParts.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

WaylandSession::Opened WaylandSession::open(const PartsMaker &makeParts, const QByteArray &display,
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
                new WaylandSession(std::move(opened.connection), std::move(*shell), makeParts)),
            {}};
}

WaylandSession::WaylandSession(std::unique_ptr<WaylandConnection> connection, LayerShell shell,
                               const PartsMaker &makeParts)
    : m_connection(std::move(connection)),
      m_outputs(*m_connection, shell.abilities()),
      m_windowServer(*m_connection, std::move(shell), m_outputs),
      m_parts(makeParts ? makeParts(*m_connection, m_outputs) : std::make_unique<UnknownParts>()) {
    m_outputs.follow(m_parts->usableAreas());
}

} // namespace zeph
