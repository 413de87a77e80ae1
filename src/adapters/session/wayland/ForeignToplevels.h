// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/apps/FrontApplication.h"
#include "adapters/session/wayland/WaylandConnection.h"

#include <memory>
#include <vector>

namespace zeph {

/// The application of the window that a compositor calls activated, by the management protocol of
/// wlroots. It tells of a window's name and not of its process.
class ForeignToplevels : public Workspace {
public:
    /// Null where the compositor does not offer it. Both outlive this. None is in front before the
    /// compositor's first word, nor after its last one.
    static std::unique_ptr<ForeignToplevels> create(WaylandConnection &connection,
                                                    DesktopEntries &entries);
    ~ForeignToplevels() override;

    std::optional<RunningApplication> frontmostApplication() const override {
        return m_front.now();
    }
    Subscription
    subscribeToActivations(std::function<void(const RunningApplication &)> handler) override;

private:
    class Toplevel;

    ForeignToplevels(WaylandHandle<zwlr_foreign_toplevel_manager_v1> manager,
                     DesktopEntries &entries);
    void add(zwlr_foreign_toplevel_handle_v1 *handle);
    void remove(const Toplevel &toplevel);
    void update();
    void finish();

    FrontApplication m_front;
    WaylandHandle<zwlr_foreign_toplevel_manager_v1> m_manager;
    std::vector<std::unique_ptr<Toplevel>> m_toplevels;
    bool m_isFinished = false;
};

} // namespace zeph
