// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/BusService.h"
#include "adapters/session/gnome/DisplayConfig.h"
#include "adapters/session/x11/MonitorScales.h"

namespace zeph {

/// The scales of GNOME's monitors, which its X server does not tell: asked of
/// org.gnome.Mutter.DisplayConfig on the session bus, and again whenever that signals a change.
/// Nothing waits for the answer.
class MutterScales : public MonitorScales {
public:
    explicit MutterScales(const QDBusConnection &bus);

    std::optional<double> scaleOf(const QString &connector, const QRect &geometry) const override;
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;

private:
    void ownerChanged();
    void ask();
    void take(const std::optional<DisplayConfig> &config);

    std::optional<DisplayConfig> m_config;
    ChangePublisher m_changes;
    BusService m_service; // last, since it calls back
};

} // namespace zeph
