// SPDX-License-Identifier: MIT
#include "host/SpaceMembership.h"

#include <utility>

namespace zeph {

SpaceMembership::SpaceMembership(std::function<std::optional<quint64>(int surface)> seenOn,
                                 std::function<std::vector<quint64>()> there)
    : m_seenOn(std::move(seenOn)), m_there(std::move(there)) {}

void SpaceMembership::add(int surface, const std::set<quint64> &spaces) {
    m_spaces[surface].insert(spaces.begin(), spaces.end());
}

void SpaceMembership::remove(int surface, const std::set<quint64> &spaces) {
    std::erase_if(m_spaces[surface], [&](quint64 space) { return spaces.contains(space); });
}

std::set<quint64> SpaceMembership::spacesOf(int surface) const {
    const auto found = m_spaces.find(surface);
    std::set<quint64> spaces;
    for (const quint64 space : m_there()) {
        if (found != m_spaces.end() && found->second.contains(space)) {
            spaces.insert(space);
        }
    }
    if (const auto seen = m_seenOn(surface)) {
        spaces.insert(*seen);
    }
    return spaces;
}

} // namespace zeph
