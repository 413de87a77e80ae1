// SPDX-License-Identifier: MIT
#include "adapters/kernel/ProcNetworkInterfaces.h"

#include "adapters/kernel/ProcFile.h"
#include "adapters/kernel/ProcParsers.h"

namespace zeph {

ProcNetworkInterfaces::ProcNetworkInterfaces(const QString &root)
    : m_path(root + QStringLiteral("/net/dev")) {}

std::optional<std::vector<LinkCounters>> ProcNetworkInterfaces::links() const {
    return parseLinks(procFileContents(m_path));
}

} // namespace zeph
