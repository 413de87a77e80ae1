// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/power/FakePowerDaemon.h"

namespace zeph {

inline QString upowerDevice(const QString &name) {
    return QStringLiteral("/org/freedesktop/UPower/devices/") + name;
}

/// A private bus with a UPower that the test plays; it is not there before `upower.appear()`.
class UPowerFixture : public testing::Test {
protected:
    UPowerFixture() {
        setDaemon({{QStringLiteral("OnBattery"), true}});
        setDevice(QStringLiteral("DisplayDevice"), batteryProperties(42.4));
    }

    static QVariantMap batteryProperties(double percentage) {
        return {{QStringLiteral("Type"), 2U},
                {QStringLiteral("PowerSupply"), true},
                {QStringLiteral("IsPresent"), true},
                {QStringLiteral("State"), 2U},
                {QStringLiteral("Percentage"), percentage},
                {QStringLiteral("TimeToEmpty"), qlonglong(7230)},
                {QStringLiteral("TimeToFull"), qlonglong(0)}};
    }
    static QVariantMap peripheral(const QString &model, double percentage) {
        return {{QStringLiteral("Type"), 5U},         {QStringLiteral("PowerSupply"), false},
                {QStringLiteral("IsPresent"), true},  {QStringLiteral("Model"), model},
                {QStringLiteral("BatteryLevel"), 1U}, {QStringLiteral("Percentage"), percentage}};
    }

    void setDaemon(const QVariantMap &values) {
        upower.set(QStringLiteral("/org/freedesktop/UPower"),
                   QStringLiteral("org.freedesktop.UPower"), values);
    }
    void setDevice(const QString &name, const QVariantMap &values) {
        upower.set(upowerDevice(name), QStringLiteral("org.freedesktop.UPower.Device"), values);
    }
    void announce(const QString &signal, const QString &name) {
        upower.signal(QStringLiteral("/org/freedesktop/UPower"),
                      QStringLiteral("org.freedesktop.UPower"), signal,
                      {QVariant::fromValue(QDBusObjectPath(upowerDevice(name)))});
    }

    PrivateBus bus;
    FakePowerDaemon upower{bus.address(), QStringLiteral("org.freedesktop.UPower")};
    BusConnection client{bus.address()};
};

} // namespace zeph
