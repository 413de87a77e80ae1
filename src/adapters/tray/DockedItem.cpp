// SPDX-License-Identifier: MIT
#include "adapters/tray/DockedItem.h"

#include <utility>

namespace zeph {

std::unique_ptr<DockedItem> DockedItem::make(const TrayFacts &facts, const TrayTools &tools,
                                             const QByteArray &display) {
    auto connection = X11Connection::open(display);
    return connection
               ? std::unique_ptr<DockedItem>(new DockedItem(std::move(connection), facts, tools))
               : nullptr;
}

DockedItem::DockedItem(std::unique_ptr<X11Connection> connection, const TrayFacts &facts,
                       const TrayTools &tools)
    : m_connection(std::move(connection)),
      m_facts(facts),
      m_tools(tools),
      m_tray(*m_connection,
             "_NET_SYSTEM_TRAY_S" + QByteArray::number(m_connection->screenNumber())),
      m_changes(m_tray.subscribe([this] { dock(); })) {
    dock();
}

void DockedItem::dock() {
    m_window.reset();
    if (m_tray.owner() != XCB_WINDOW_NONE) {
        m_window = std::make_unique<DockedWindow>(*m_connection, m_tray.owner(), m_facts, m_tools);
    }
}

} // namespace zeph
