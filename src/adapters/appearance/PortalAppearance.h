// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/BusService.h"
#include "ports/DesktopAppearance.h"

#include <optional>

namespace zeph {

/// How windows are to look, after the settings that the desktop's portal tells. The portal is
/// started only for somebody who subscribes; while there is none, nothing is known.
class PortalAppearance : public DesktopAppearance {
public:
    explicit PortalAppearance(QDBusConnection sessionBus);

    Scheme scheme() const override { return m_told.scheme; }
    bool wantsHighContrast() const override { return m_told.isHighContrast; }
    bool wantsMotion() const override { return m_told.hasAnimations && !m_told.isMotionReduced; }
    [[nodiscard]] Subscription subscribe(std::function<void()> handler) override;

private:
    struct Told {
        Scheme scheme = Scheme::unknown;
        bool isHighContrast = false;
        bool hasAnimations = true;
        bool isMotionReduced = false;

        bool operator==(const Told &) const = default;
    };

    static void take(const QString &group, const QString &key, const QVariant &value, Told &told);
    void ownerChanged();
    void answered(const QDBusMessage &answer);
    void changed(const QDBusMessage &signal);
    void set(const Told &told);
    void startPortal() const;

    QDBusConnection m_bus;
    Told m_told;
    bool m_isStarted = false; // or was asked to
    ChangePublisher m_changes;
    BusService m_portal; // last, since it calls back
};

} // namespace zeph
