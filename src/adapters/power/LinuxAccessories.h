// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "ports/Accessories.h"

#include <QMutex>
#include <QString>
#include <QWaitCondition>

#include <functional>

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

    QString m_sysfsRoot;
    UPowerSources &m_upower;
    BluezBatteries &m_bluez;
    RunLoop &m_runLoop;
    WorkOwner m_owner;
    const std::function<void()> m_startBluez; // on the loop

    mutable QMutex m_mutex;
    mutable QWaitCondition m_settled;
    mutable bool m_isBluezStarted = false;
    bool m_isSettled = false;
    std::vector<AccessoryCharge> m_services;

    Subscription m_upowerSubscription;
    Subscription m_bluezSubscription;
};

} // namespace zeph
