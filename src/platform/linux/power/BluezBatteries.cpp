// SPDX-License-Identifier: MIT
#include "platform/linux/power/BluezBatteries.h"

#include "platform/linux/dbus/DBusCalls.h"
#include "platform/linux/dbus/SignalWatch.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

using Interfaces = QMap<QString, QVariantMap>;
using ManagedObjects = QMap<QDBusObjectPath, Interfaces>;

const QString service = u"org.bluez"_s;
const QString managerInterface = u"org.freedesktop.DBus.ObjectManager"_s;
const QString batteryInterface = u"org.bluez.Battery1"_s;
const QString deviceInterface = u"org.bluez.Device1"_s;
const QString percentageName = u"Percentage"_s;

// More than an adapter can hold connected.
constexpr std::size_t deviceLimit = 64;

/// The protocol's percentage is one byte.
std::optional<qint64> percentIn(const QVariantMap &battery) {
    const QVariant value = battery.value(percentageName);
    return value.typeId() == QMetaType::UChar ? std::optional<qint64>(value.toInt()) : std::nullopt;
}

/// What the user calls the device, or else what it calls itself.
std::optional<QString> nameIn(const QVariantMap &device) {
    for (const QString &key : {u"Alias"_s, u"Name"_s}) {
        const QString name = device.value(key).toString().trimmed();
        if (!name.isEmpty()) {
            return name;
        }
    }
    return std::nullopt;
}

QString pathIn(const QDBusMessage &signal) {
    return signal.arguments().constFirst().value<QDBusObjectPath>().path();
}

} // namespace

BluezBatteries::BluezBatteries(QDBusConnection bus) : m_bus(std::move(bus)) {}

BluezBatteries::~BluezBatteries() = default;

Subscription BluezBatteries::onChange(std::function<void()> handler) {
    return m_changed.subscribe(std::move(handler));
}

void BluezBatteries::start() {
    if (m_isStarted) {
        return;
    }
    m_isStarted = true;
    if (m_bus.isConnected()) {
        watch();
        refresh();
    }
    m_changed.send();
}

void BluezBatteries::watch() {
    m_serviceWatch = std::make_unique<QDBusServiceWatcher>(
        service, m_bus, QDBusServiceWatcher::WatchForOwnerChange);
    QObject::connect(m_serviceWatch.get(), &QDBusServiceWatcher::serviceOwnerChanged, &m_context,
                     [this](const QString &, const QString &, const QString &newOwner) {
                         ++m_life;
                         m_isAsked = false;
                         m_devices.clear();
                         if (!newOwner.isEmpty()) {
                             refresh();
                         }
                         m_changed.send();
                     });
    const auto follow = [this](BusSignal signal, SignalWatch::Handler handler) {
        m_watches.push_back(
            std::make_unique<SignalWatch>(m_bus, std::move(signal), std::move(handler)));
    };
    follow({service, u"/"_s, managerInterface, u"InterfacesAdded"_s, {}, u"oa{sa{sv}}"_s},
           [this](const QDBusMessage &signal) { interfacesAdded(signal); });
    follow({service, u"/"_s, managerInterface, u"InterfacesRemoved"_s, {}, u"oas"_s},
           [this](const QDBusMessage &signal) { interfacesRemoved(signal); });
    follow({service,
            QString(),
            u"org.freedesktop.DBus.Properties"_s,
            u"PropertiesChanged"_s,
            {batteryInterface},
            u"sa{sv}as"_s},
           [this](const QDBusMessage &signal) { batteryChanged(signal); });
}

/// Asks for all devices anew, once for all the changes that come while the answer is under way.
void BluezBatteries::refresh() {
    if (m_isAsked) {
        m_isStale = true;
        return;
    }
    m_isAsked = true;
    m_isStale = false;
    callAsync(
        m_bus,
        QDBusMessage::createMethodCall(service, u"/"_s, managerInterface, u"GetManagedObjects"_s),
        busDefaultTimeout, &m_context, [this, life = m_life](const QDBusMessage &answer) {
            if (life == m_life) {
                answered(answer);
            }
        });
}

void BluezBatteries::answered(const QDBusMessage &answer) {
    m_isAsked = false;
    m_devices.clear();
    if (answer.type() == QDBusMessage::ReplyMessage && answer.signature() == u"a{oa{sa{sv}}}"_s) {
        const auto objects = qdbus_cast<ManagedObjects>(answer.arguments().constFirst());
        for (auto object = objects.begin(); object != objects.end(); ++object) {
            const auto battery = object->find(batteryInterface);
            if (battery != object->end() && m_devices.size() < deviceLimit) {
                m_devices[object.key().path()] = {nameIn(object->value(deviceInterface)),
                                                  percentIn(*battery)};
            }
        }
    }
    if (m_isStale) {
        refresh();
    }
    m_changed.send();
}

void BluezBatteries::interfacesAdded(const QDBusMessage &signal) {
    // Most of what is added is a passer-by that has no battery to tell of.
    if (qdbus_cast<Interfaces>(signal.arguments().at(1)).contains(batteryInterface)) {
        refresh();
    }
}

void BluezBatteries::interfacesRemoved(const QDBusMessage &signal) {
    if (!signal.arguments().at(1).toStringList().contains(batteryInterface)) {
        return;
    }
    m_isStale = true; // an answer under way may still hold it
    m_devices.erase(pathIn(signal));
    m_changed.send();
}

void BluezBatteries::batteryChanged(const QDBusMessage &signal) {
    const auto found = m_devices.find(signal.path());
    const auto changed = qdbus_cast<QVariantMap>(signal.arguments().at(1));
    if (found == m_devices.end() || !changed.contains(percentageName)) {
        refresh();
        return;
    }
    found->second.percent = percentIn(changed);
    m_changed.send();
}

std::vector<AccessoryCharge> BluezBatteries::accessories() const {
    std::vector<AccessoryCharge> charges;
    for (const auto &[path, charge] : m_devices) {
        charges.push_back(charge);
    }
    return charges;
}

} // namespace zeph
