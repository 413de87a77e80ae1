// SPDX-License-Identifier: MIT
#pragma once

#include "core/ChangePublisher.h"
#include "platform/Accessories.h"
#include "platform/linux/power/BatteryReading.h"

#include <QDBusConnection>
#include <QObject>

#include <map>
#include <memory>
#include <vector>

class QDBusMessage;
class QDBusServiceWatcher;

namespace zeph {

class SignalWatch;

/// What UPower knows, by subscription: every object is asked once and then followed. A daemon that
/// comes, goes or starts anew is followed too; it is never started by asking. Main thread only.
class UPowerSources {
public:
    /// `bus` is the system bus. One that isn't connected is a machine without the daemon.
    explicit UPowerSources(QDBusConnection bus);
    ~UPowerSources();
    UPowerSources(const UPowerSources &) = delete;
    UPowerSources &operator=(const UPowerSources &) = delete;

    /// The machine's own batteries; absent while the daemon is away or has not answered.
    std::optional<BatteryReading> battery() const;

    /// The peripherals that have a charge.
    std::vector<AccessoryCharge> accessories() const;

    /// False until it is known whether the daemon is there and what it knows.
    bool isSettled() const { return m_questions == 0; }

    /// `handler` runs after a change of what is told here; it must not end this.
    [[nodiscard]] Subscription onChange(std::function<void()> handler);

private:
    struct Object {
        QVariantMap properties; // those that are read here
        bool isKnown = false;
        bool isAsked = false;
        bool isStale = false; // changed without a value while the question was under way
    };

    void watch();
    void ownerChanged(bool isThere);
    void askEverything();
    void enumerate();
    void ask(const QString &path);
    void answered(const QString &path, const std::optional<QVariantMap> &properties);
    void propertiesChanged(const QDBusMessage &signal);
    void deviceRemoved(const QString &path);

    QDBusConnection m_bus;
    QObject m_context;  // its end drops the calls under way
    quint64 m_life = 0; // of the daemon; answers of an earlier one are dropped
    int m_questions = 0;
    std::map<QString, Object> m_objects; // the daemon and its display device included
    ChangePublisher m_changed;
    std::unique_ptr<QDBusServiceWatcher> m_serviceWatch;
    std::vector<std::unique_ptr<SignalWatch>> m_watches;
};

} // namespace zeph
