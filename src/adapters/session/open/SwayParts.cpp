// SPDX-License-Identifier: MIT
#include "adapters/session/open/SwayParts.h"

namespace zeph {

SwayParts::SwayParts(RunLoop &runLoop, DesktopEntries &entries, const QString &socket)
    : m_ipc(runLoop, socket), m_workspace(m_ipc, entries), m_list(m_ipc), m_insets(m_list) {}

} // namespace zeph
