// SPDX-License-Identifier: MIT
#pragma once

#include "ports/SurfaceSpaces.h"

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace zeph {

/// The workspaces of surfaces on display systems where a surface is on one workspace or on all, but
/// never on some. Ours are on all of them, and those that are unwanted on the one in sight are
/// ordered out. So a surface is on those that it was added to, while they are there, and on the one
/// where it can be seen.
class SpaceMembership : public SurfaceSpaces {
public:
    /// `seenOn` answers the workspace on which a surface can be seen now; absent while it is
    /// ordered out. `there` answers all workspaces of now.
    SpaceMembership(std::function<std::optional<quint64>(int surface)> seenOn,
                    std::function<std::vector<quint64>()> there);

    void add(int surface, const std::set<quint64> &spaces) override;
    void remove(int surface, const std::set<quint64> &spaces) override;
    std::set<quint64> spacesOf(int surface) const override;

private:
    std::function<std::optional<quint64>(int surface)> m_seenOn;
    std::function<std::vector<quint64>()> m_there;
    std::map<int, std::set<quint64>> m_spaces;
};

} // namespace zeph
