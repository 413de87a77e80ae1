// SPDX-License-Identifier: MIT
#pragma once

#include "core/ChangePublisher.h"
#include "platform/Accessories.h"

#include <QMutex>
#include <QString>
#include <QWaitCondition>

#include <memory>

namespace zeph {

class BluezBatteries;
class RunLoop;
class UPowerSources;

/// Peripherals after the kernel, and after UPower and BlueZ. Those two are heard on the main
/// thread, where this has to be made and ended; the questions come from other threads and are
/// answered from a copy of the last word. BlueZ is not troubled before the first question.
class LinuxAccessories : public Accessories {
public:
    /// `sysfsRoot` is /sys/class/power_supply. Everything outlives this, and this every question.
    LinuxAccessories(QString sysfsRoot, UPowerSources &upower, BluezBatteries &bluez,
                     RunLoop &runLoop);
    ~LinuxAccessories() override;

    std::vector<AccessoryCharge> inputDevices() const override;

    /// Waits for a fraction of a second while a service has not answered for the first time.
    std::vector<AccessoryCharge> powerSources() const override;

private:
    void update();
    void startBluez() const;

    QString m_sysfsRoot;
    UPowerSources &m_upower;
    BluezBatteries &m_bluez;
    RunLoop &m_runLoop;
    std::shared_ptr<BluezBatteries *> m_startable; // what waits on the loop holds it weakly

    mutable QMutex m_mutex;
    mutable QWaitCondition m_settled;
    mutable bool m_isBluezStarted = false;
    bool m_isSettled = false;
    std::vector<AccessoryCharge> m_services;

    Subscription m_upowerSubscription;
    Subscription m_bluezSubscription;
};

} // namespace zeph
