// SPDX-License-Identifier: MIT
#pragma once

#include "ports/Port.h"

#include <QtGlobal>

#include <set>

namespace zeph {

/// Moves surfaces between workspaces. Surfaces go by a number that is never used again, workspaces
/// by `ManagedSpace::id`; a number that is not known is nothing to act on. Main thread only.
class SurfaceSpaces : public Port {
public:
    /// Has the surface shown on those workspaces too.
    virtual void add(int surface, const std::set<quint64> &spaces) = 0;

    /// Has the surface no longer shown on those workspaces.
    virtual void remove(int surface, const std::set<quint64> &spaces) = 0;

    /// The workspaces that the surface is on now. A display system may follow `add` and `remove`
    /// late, or in part.
    virtual std::set<quint64> spacesOf(int surface) const = 0;
};

} // namespace zeph
