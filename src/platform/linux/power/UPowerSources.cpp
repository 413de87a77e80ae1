// SPDX-License-Identifier: MIT
#include "platform/linux/power/UPowerSources.h"

#include "platform/linux/dbus/DBusCalls.h"
#include "platform/linux/dbus/SignalWatch.h"
#include "platform/linux/power/UPowerReading.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.UPower"_s;
const QString daemonPath = u"/org/freedesktop/UPower"_s;
const QString displayPath = u"/org/freedesktop/UPower/devices/DisplayDevice"_s;
const QString daemonInterface = u"org.freedesktop.UPower"_s;
const QString deviceInterface = u"org.freedesktop.UPower.Device"_s;
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

// No desk has as many devices; a daemon that claims so is not believed.
constexpr std::size_t objectLimit = 66;

QString interfaceOf(const QString &path) {
    return path == daemonPath ? daemonInterface : deviceInterface;
}

/// Takes over what is read here; tells whether there was anything of it.
bool merge(const QVariantMap &from, QVariantMap &into) {
    bool isTouched = false;
    for (const QString &name : readUPowerProperties()) {
        const auto found = from.find(name);
        if (found != from.end()) {
            into[name] = *found;
            isTouched = true;
        }
    }
    return isTouched;
}

QString pathIn(const QDBusMessage &signal) {
    return signal.arguments().constFirst().value<QDBusObjectPath>().path();
}

} // namespace

UPowerSources::UPowerSources(QDBusConnection bus) : m_bus(std::move(bus)) {
    if (m_bus.isConnected()) {
        watch();
        askEverything();
    }
}

UPowerSources::~UPowerSources() = default;

Subscription UPowerSources::onChange(std::function<void()> handler) {
    return m_changed.subscribe(std::move(handler));
}

void UPowerSources::watch() {
    m_serviceWatch = std::make_unique<QDBusServiceWatcher>(
        service, m_bus, QDBusServiceWatcher::WatchForOwnerChange);
    QObject::connect(m_serviceWatch.get(), &QDBusServiceWatcher::serviceOwnerChanged, &m_context,
                     [this](const QString &, const QString &, const QString &newOwner) {
                         ownerChanged(!newOwner.isEmpty());
                     });
    const auto follow = [this](BusSignal signal, SignalWatch::Handler handler) {
        m_watches.push_back(
            std::make_unique<SignalWatch>(m_bus, std::move(signal), std::move(handler)));
    };
    const auto changed = [this](const QDBusMessage &signal) { propertiesChanged(signal); };
    follow({service,
            daemonPath,
            propertiesInterface,
            u"PropertiesChanged"_s,
            {daemonInterface},
            u"sa{sv}as"_s},
           changed);
    follow({service,
            QString(),
            propertiesInterface,
            u"PropertiesChanged"_s,
            {deviceInterface},
            u"sa{sv}as"_s},
           changed);
    follow({service, daemonPath, daemonInterface, u"DeviceAdded"_s, {}, u"o"_s},
           [this](const QDBusMessage &signal) { ask(pathIn(signal)); });
    follow({service, daemonPath, daemonInterface, u"DeviceRemoved"_s, {}, u"o"_s},
           [this](const QDBusMessage &signal) { deviceRemoved(pathIn(signal)); });
}

void UPowerSources::ownerChanged(bool isThere) {
    ++m_life;
    m_questions = 0;
    m_objects.clear();
    if (isThere) {
        askEverything();
    }
    m_changed.send();
}

void UPowerSources::askEverything() {
    ask(daemonPath);
    ask(displayPath);
    enumerate();
}

void UPowerSources::enumerate() {
    ++m_questions;
    callAsync(
        m_bus,
        QDBusMessage::createMethodCall(service, daemonPath, daemonInterface, u"EnumerateDevices"_s),
        busDefaultTimeout, &m_context, [this, life = m_life](const QDBusMessage &answer) {
            if (life != m_life) {
                return;
            }
            --m_questions;
            if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == u"ao"_s) {
                const auto paths =
                    qdbus_cast<QList<QDBusObjectPath>>(answer.arguments().constFirst());
                for (const QDBusObjectPath &path : paths) {
                    ask(path.path());
                }
            }
            m_changed.send();
        });
}

/// One question an object at a time, so that a daemon that is slow to answer does not collect
/// them.
void UPowerSources::ask(const QString &path) {
    if (m_objects.size() >= objectLimit && m_objects.count(path) == 0) {
        return;
    }
    Object &object = m_objects[path];
    if (object.isAsked) {
        object.isStale = true;
        return;
    }
    object.isAsked = true;
    object.isStale = false;
    ++m_questions;
    getAllProperties(m_bus, service, path, interfaceOf(path), &m_context,
                     [this, path, life = m_life](const std::optional<QVariantMap> &properties) {
                         if (life == m_life) {
                             --m_questions;
                             answered(path, properties);
                         }
                     });
}

void UPowerSources::answered(const QString &path, const std::optional<QVariantMap> &properties) {
    const auto found = m_objects.find(path);
    if (found != m_objects.end()) {
        Object &object = found->second;
        object.isAsked = false;
        object.isKnown = properties.has_value();
        object.properties.clear();
        if (properties) {
            merge(*properties, object.properties);
        }
        if (object.isStale) {
            ask(path);
        } else if (!properties) {
            m_objects.erase(found);
        }
    }
    m_changed.send();
}

void UPowerSources::propertiesChanged(const QDBusMessage &signal) {
    const auto found = m_objects.find(signal.path());
    if (found == m_objects.end()) {
        return;
    }
    const QVariantList arguments = signal.arguments();
    const QStringList invalidated = arguments.at(2).toStringList();
    const bool isTouched =
        merge(qdbus_cast<QVariantMap>(arguments.at(1)), found->second.properties);
    if (!invalidated.isEmpty()) {
        ask(signal.path());
    }
    if (isTouched) {
        m_changed.send();
    }
}

void UPowerSources::deviceRemoved(const QString &path) {
    m_objects.erase(path);
    m_changed.send();
}

std::optional<BatteryReading> UPowerSources::battery() const {
    const auto daemon = m_objects.find(daemonPath);
    const auto display = m_objects.find(displayPath);
    if (daemon == m_objects.end() || display == m_objects.end() || !daemon->second.isKnown ||
        !display->second.isKnown) {
        return std::nullopt;
    }
    std::vector<QVariantMap> devices;
    for (const auto &[path, object] : m_objects) {
        if (object.isKnown && path != daemonPath && path != displayPath) {
            devices.push_back(object.properties);
        }
    }
    return batteryReading(daemon->second.properties, display->second.properties, devices);
}

std::vector<AccessoryCharge> UPowerSources::accessories() const {
    std::vector<AccessoryCharge> charges;
    for (const auto &[path, object] : m_objects) {
        if (object.isKnown && path != daemonPath && path != displayPath) {
            if (auto charge = accessoryCharge(object.properties)) {
                charges.push_back(std::move(*charge));
            }
        }
    }
    return charges;
}

} // namespace zeph
