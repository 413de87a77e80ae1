// SPDX-License-Identifier: MIT
#include "adapters/power/LinuxPowerSources.h"

#include "adapters/power/UPowerSources.h"

namespace zeph {

using namespace Qt::StringLiterals;

LinuxPowerSources::LinuxPowerSources(UPowerSources &upower, const QString &sysfsRoot,
                                     const Background &background)
    : m_upower(upower),
      m_sysfs(sysfsRoot, background, [this] { sysfsArrived(); }),
      m_subscription(upower.onChange([this] { upowerChanged(); })) {
    m_sysfs.refresh(); // the kernel's word serves until the daemon has answered
}

/// The course of the charge is told at the next question; only that the daemon came or went is
/// news.
void LinuxPowerSources::upowerChanged() {
    const bool isThere = m_upower.battery().has_value();
    if (isThere == m_isUPowerThere) {
        return;
    }
    m_isUPowerThere = isThere;
    if (isThere) {
        m_sysfs.forget();
        tellNews();
    } else {
        m_sysfs.refresh();
    }
}

void LinuxPowerSources::sysfsArrived() {
    if (m_isUPowerThere) {
        m_sysfs.forget();
    } else {
        tellNews();
    }
}

void LinuxPowerSources::tellNews() {
    if (latest() != m_told) {
        m_isTelling = true;
        m_changes.send();
        m_isTelling = false;
    }
}

/// The word of a daemon that went away stands until the kernel's has arrived.
const std::optional<BatteryReading> &LinuxPowerSources::latest() const {
    if (const auto reading = m_upower.battery()) {
        m_latest = reading;
    } else if (m_sysfs.hasArrived()) {
        m_latest = m_sysfs.reading();
    }
    return m_latest;
}

std::optional<std::vector<QVariantMap>> LinuxPowerSources::descriptions() const {
    // What the handler asks for has just been read; a charge that moves would keep it going.
    if (!m_isUPowerThere && !m_isTelling) {
        m_sysfs.refresh();
    }
    m_told = latest();
    if (!m_told) {
        return std::nullopt;
    }
    m_hadCharge = m_hadCharge || (m_told->current && m_told->maximum);
    std::vector<QVariantMap> sources;
    if (m_told->hasBattery && m_hadCharge) {
        sources.push_back(descriptionOf(*m_told));
    }
    return sources;
}

std::optional<qint64> LinuxPowerSources::gauge(const QString &key) const {
    if (!m_told) {
        return std::nullopt;
    }
    if (key == u"CycleCount"_s) {
        return m_told->cycleCount;
    }
    if (key == u"DesignCapacity"_s) {
        return m_told->designCapacity;
    }
    return key == u"AppleRawMaxCapacity"_s ? m_told->fullCapacity : std::nullopt;
}

bool LinuxPowerSources::hasGauge() const {
    return m_told && m_told->hasBattery;
}

} // namespace zeph
