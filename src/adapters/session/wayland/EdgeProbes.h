// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/WaylandWindowServer.h"
#include "base/ChangePublisher.h"

#include <functional>
#include <memory>
#include <vector>

namespace zeph {

/// Learns whenever panels take more or less of an output: on each there is a surface that keeps
/// clear of them, and that the compositor tells its size anew then. It never has any pixels, and so
/// is never seen.
class EdgeProbes {
public:
    /// Calls `handler` after every such change, and sometimes when nothing changed: what panels
    /// leave is to be read elsewhere. `connection` and `outputs` outlive this.
    EdgeProbes(const WaylandConnection &connection, WaylandOutputs &outputs,
               std::function<void()> handler);
    ~EdgeProbes();
    EdgeProbes(const EdgeProbes &) = delete;
    EdgeProbes &operator=(const EdgeProbes &) = delete;

private:
    struct Probe;

    void follow();
    std::unique_ptr<Probe> makeProbe(const WaylandOutputs::Place &place);

    std::optional<LayerShell> m_shell; // absent where there are no layers
    WaylandOutputs &m_outputs;
    std::function<void()> m_handler;
    std::vector<std::unique_ptr<Probe>> m_probes;
    Subscription m_places;
};

} // namespace zeph
