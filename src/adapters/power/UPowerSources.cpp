// SPDX-License-Identifier: MIT
#include "adapters/power/UPowerSources.h"

#include "adapters/power/UPowerReading.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString daemonPath = u"/org/freedesktop/UPower"_s;
const QString displayPath = u"/org/freedesktop/UPower/devices/DisplayDevice"_s;
const QString daemonInterface = u"org.freedesktop.UPower"_s; // the service has the same name
const QString deviceInterface = u"org.freedesktop.UPower.Device"_s;

// More than a desk has, the daemon and its display device included.
constexpr std::size_t objectLimit = 66;

QString pathIn(const QDBusMessage &signal) {
    return signal.arguments().constFirst().value<QDBusObjectPath>().path();
}

} // namespace

UPowerSources::UPowerSources(const QDBusConnection &bus)
    : m_mirror(
          bus, daemonInterface,
          {{daemonInterface, readUPowerProperties()}, {deviceInterface, readUPowerProperties()}},
          objectLimit, [this] { readEverything(); }) {
    BusService &service = m_mirror.service();
    service.follow(
        {{}, daemonPath, daemonInterface, u"DeviceAdded"_s, {}, u"o"_s},
        [this](const QDBusMessage &signal) { m_mirror.read(pathIn(signal), deviceInterface); });
    service.follow({{}, daemonPath, daemonInterface, u"DeviceRemoved"_s, {}, u"o"_s},
                   [this](const QDBusMessage &signal) { m_mirror.drop(pathIn(signal)); });
}

void UPowerSources::readEverything() {
    m_mirror.read(daemonPath, daemonInterface);
    m_mirror.read(displayPath, deviceInterface);
    m_mirror.ask(daemonPath, daemonInterface, u"EnumerateDevices"_s, u"ao"_s,
                 [this](const std::optional<QVariant> &answer) {
                     if (answer) {
                         for (const auto &path : qdbus_cast<QList<QDBusObjectPath>>(*answer)) {
                             m_mirror.read(path.path(), deviceInterface);
                         }
                     }
                 });
}

std::vector<QVariantMap> UPowerSources::devices() const {
    std::vector<QVariantMap> devices;
    for (const QString &path : m_mirror.paths(deviceInterface)) {
        if (path != displayPath) {
            devices.push_back(*m_mirror.properties(path, deviceInterface));
        }
    }
    return devices;
}

std::optional<BatteryReading> UPowerSources::battery() const {
    const QVariantMap *const daemon = m_mirror.properties(daemonPath, daemonInterface);
    const QVariantMap *const display = m_mirror.properties(displayPath, deviceInterface);
    return daemon != nullptr && display != nullptr ? batteryReading(*daemon, *display, devices())
                                                   : std::nullopt;
}

std::vector<AccessoryCharge> UPowerSources::accessories() const {
    std::vector<AccessoryCharge> charges;
    for (const QVariantMap &device : devices()) {
        if (auto charge = accessoryCharge(device)) {
            charges.push_back(std::move(*charge));
        }
    }
    return charges;
}

} // namespace zeph
