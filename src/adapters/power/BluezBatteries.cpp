// SPDX-License-Identifier: MIT
#include "adapters/power/BluezBatteries.h"

#include "adapters/power/PowerSupply.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

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

// More than an adapter can hold connected, each with its two interfaces.
constexpr std::size_t objectLimit = 128;

/// The protocol's percentage is one byte.
std::optional<qint64> percentIn(const QVariantMap &battery) {
    const QVariant value = battery.value(percentageName);
    return value.typeId() == QMetaType::UChar ? std::optional<qint64>(value.toInt()) : std::nullopt;
}

/// What the user calls the device, or else what it calls itself.
std::optional<QString> nameIn(const QVariantMap &device) {
    for (const QString &key : {u"Alias"_s, u"Name"_s}) {
        if (auto name = parseAttributeText(device.value(key).toString().toUtf8())) {
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

void BluezBatteries::start() {
    if (m_mirror) {
        return;
    }
    // What a device tells of itself besides its names, as its signal's strength, changes all the
    // time.
    m_mirror = std::make_unique<ObjectMirror>(
        m_bus, service,
        std::vector<MirroredInterface>{{batteryInterface, {percentageName}},
                                       {deviceInterface, {u"Alias"_s, u"Name"_s}, false}},
        objectLimit, [this] { readEverything(); });
    m_mirrorChanges = m_mirror->onChange([this] { m_changed.send(); });
    m_mirror->service().follow(
        {{}, u"/"_s, managerInterface, u"InterfacesAdded"_s, {}, u"oa{sa{sv}}"_s},
        [this](const QDBusMessage &signal) { interfacesAdded(signal); });
    m_mirror->service().follow({{}, u"/"_s, managerInterface, u"InterfacesRemoved"_s, {}, u"oas"_s},
                               [this](const QDBusMessage &signal) { interfacesRemoved(signal); });
    m_changed.send();
}

void BluezBatteries::readEverything() {
    m_mirror->ask(u"/"_s, managerInterface, u"GetManagedObjects"_s, u"a{oa{sa{sv}}}"_s,
                  [this](const std::optional<QVariant> &answer) {
                      const auto objects =
                          answer ? qdbus_cast<ManagedObjects>(*answer) : ManagedObjects();
                      for (auto object = objects.begin(); object != objects.end(); ++object) {
                          if (object->contains(batteryInterface)) {
                              const QString path = object.key().path();
                              m_mirror->put(path, batteryInterface, (*object)[batteryInterface]);
                              m_mirror->put(path, deviceInterface, (*object)[deviceInterface]);
                          }
                      }
                  });
}

void BluezBatteries::interfacesAdded(const QDBusMessage &signal) {
    // Most of what is added is a passer-by that has no battery to tell of.
    if (qdbus_cast<Interfaces>(signal.arguments().at(1)).contains(batteryInterface)) {
        m_mirror->read(pathIn(signal), deviceInterface);
        m_mirror->read(pathIn(signal), batteryInterface);
    }
}

void BluezBatteries::interfacesRemoved(const QDBusMessage &signal) {
    if (signal.arguments().at(1).toStringList().contains(batteryInterface)) {
        m_mirror->drop(pathIn(signal));
    }
}

std::vector<AccessoryCharge> BluezBatteries::accessories() const {
    std::vector<AccessoryCharge> charges;
    if (m_mirror) {
        for (const QString &path : m_mirror->paths(batteryInterface)) {
            const QVariantMap *const device = m_mirror->properties(path, deviceInterface);
            charges.push_back({device != nullptr ? nameIn(*device) : std::nullopt,
                               percentIn(*m_mirror->properties(path, batteryInterface))});
        }
    }
    return charges;
}

} // namespace zeph
