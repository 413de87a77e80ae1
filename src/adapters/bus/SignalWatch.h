// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>

#include <functional>

namespace zeph {

/// Which signal of which sender to follow.
struct BusSignal {
    QString service;
    QString path; ///< empty follows every object of `service`
    QString interface;
    QString name;
    QStringList firstArguments = {}; ///< what the first text arguments have to be
    QString signature;
};

/// Follows one signal with all that comes with it, its object's path included; its end
/// unsubscribes.
class SignalWatch : public QObject {
    Q_OBJECT

public:
    using Handler = std::function<void(const QDBusMessage &signal)>;

    /// `handler` runs on this thread.
    SignalWatch(QDBusConnection bus, BusSignal signal, Handler handler);
    ~SignalWatch() override;

private:
    Q_SLOT void received(const QDBusMessage &signal);

    QDBusConnection m_bus;
    BusSignal m_signal;
    Handler m_handler;
};

} // namespace zeph
