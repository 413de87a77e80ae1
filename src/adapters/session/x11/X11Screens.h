// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/MonitorScales.h"
#include "adapters/session/x11/X11MonitorWorkAreas.h"
#include "adapters/session/x11/X11Monitors.h"
#include "adapters/session/x11/X11ReservedSpace.h"
#include "ports/Screens.h"

namespace zeph {

/// The monitors of an X server as screens. A screen's origin stays in device pixels and its size is
/// in points, as the toolkit has it too.
class X11Screens : public Screens {
public:
    /// Knows the screens that are there; a few round trips.
    explicit X11Screens(X11Connection &connection);

    /// Goes by these from now on, which outlive this.
    void setScales(MonitorScales &scales);

    std::vector<Screen> all() const override { return m_screens; }
    std::optional<Screen> main() const override;
    Subscription subscribe(std::function<void()> handler) override;

private:
    std::vector<Screen> describeAll() const;
    Screen describe(const X11Monitor &monitor, const QString &identity, double scale) const;
    std::optional<double> toldScale(const X11Monitor &monitor) const;
    QRectF availableFrame(const Screen &screen) const;
    std::optional<QRect> workArea(const QRect &monitor) const;
    void follow();

    const MonitorScales *m_scales = nullptr; // where the desktop tells any
    X11MonitorWorkAreas m_areas; // first: its answers come while the others wait for theirs
    X11Monitors m_monitors;
    X11ReservedSpace m_space;
    std::vector<Screen> m_screens; // the primary one first
    ChangePublisher m_changes;
    Subscription m_scaleChanges;
};

} // namespace zeph
