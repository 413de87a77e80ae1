// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/common/IdleWatcher.h"
#include "adapters/session/wayland/WaylandConnection.h"

namespace zeph {

/// The idle watches of a compositor: ext-idle-notify, and what sway before 1.8 and KWin have
/// instead. Of several seats the first counts.
class WaylandIdle : public IdleWatcher {
public:
    /// `connection` outlives this and its watches.
    explicit WaylandIdle(WaylandConnection &connection);

    std::unique_ptr<IdleWatch> watch(std::chrono::milliseconds limit) override;

private:
    WaylandHandle<wl_seat> m_seat;
    WaylandHandle<ext_idle_notifier_v1> m_notifier;
    WaylandHandle<org_kde_kwin_idle> m_olderNotifier; // where the other one is not offered
};

} // namespace zeph
