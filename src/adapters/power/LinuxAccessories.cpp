// SPDX-License-Identifier: MIT
#include "adapters/power/LinuxAccessories.h"

#include "adapters/power/BluezBatteries.h"
#include "adapters/power/PowerSupplyTree.h"
#include "adapters/power/UPowerSources.h"
#include "ports/RunLoop.h"

#include <QDeadlineTimer>

namespace zeph {

namespace {

// Services that are well answer within milliseconds. The process may be ending meanwhile, and
// then waits for this.
constexpr int settlingMilliseconds = 300;

} // namespace

LinuxAccessories::LinuxAccessories(QString sysfsRoot, UPowerSources &upower, BluezBatteries &bluez,
                                   RunLoop &runLoop)
    : m_sysfsRoot(std::move(sysfsRoot)),
      m_upower(upower),
      m_bluez(bluez),
      m_runLoop(runLoop),
      m_startBluez(m_owner.whileAlive([&bluez] { bluez.start(); })),
      m_upowerSubscription(upower.onChange([this] { update(); })),
      m_bluezSubscription(bluez.onChange([this] { update(); })) {
    update();
}

LinuxAccessories::~LinuxAccessories() = default;

/// Runs on the main thread, where the services are heard.
void LinuxAccessories::update() {
    std::vector<AccessoryCharge> services = m_upower.accessories();
    std::vector<AccessoryCharge> bluetooth = m_bluez.accessories();
    services.insert(services.end(), bluetooth.begin(), bluetooth.end());
    const bool isSettled = m_upower.isSettled() && m_bluez.isSettled();

    const QMutexLocker lock(&m_mutex);
    m_services = std::move(services);
    m_isSettled = m_isSettled || isSettled;
    if (m_isSettled) {
        m_settled.wakeAll();
    }
}

std::vector<AccessoryCharge> LinuxAccessories::inputDevices() const {
    std::vector<AccessoryCharge> charges;
    for (const PowerSupply &supply : readDeviceSupplies(m_sysfsRoot)) {
        // A device that is switched off leaves the charge of its last day behind.
        if (supply.isPresent && supply.isOnline.value_or(true)) {
            charges.push_back({supply.model, supply.capacity});
        }
    }
    return charges;
}

std::vector<AccessoryCharge> LinuxAccessories::powerSources() const {
    QMutexLocker lock(&m_mutex);
    if (!m_isBluezStarted) {
        m_isBluezStarted = true;
        m_runLoop.post(m_startBluez);
    }
    const QDeadlineTimer deadline(settlingMilliseconds);
    while (!m_isSettled && m_settled.wait(&m_mutex, deadline)) {
    }
    return m_services;
}

} // namespace zeph
