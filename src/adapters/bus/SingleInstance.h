// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/ApplicationObject.h"

#include <QDBusConnection>
#include <QObject>

#include <functional>

namespace zeph {

/// What a start of the program is beside the other ones of the session.
enum class InstanceRole {
    primary,   ///< it owns the program's name, and requests come in
    secondary, ///< another one owns it
    noBus,     ///< there is no session bus to tell; the program runs on, without requests
};

/// Owns the name com.tavi.Tavi on the session bus for as long as it lives.
class SingleInstance {
public:
    SingleInstance(QDBusConnection sessionBus,
                   std::function<void(const ApplicationRequest &)> handler);
    ~SingleInstance();
    SingleInstance(const SingleInstance &) = delete;
    SingleInstance &operator=(const SingleInstance &) = delete;

    /// Takes the name unless it is owned; `done` runs in a later turn, `noBus` without an answer
    /// of the bus within 25 s. Never waits.
    void claim(std::function<void(InstanceRole)> done);

    /// Asks the owner to come forward. `done` runs within 2 s, true when the owner answered.
    void activateOwner(std::function<void(bool)> done);

    /// The same, and takes the place of an owner that is about to end and so does not answer.
    /// `done` runs within 5 s: `secondary` where the owner answered or stays.
    void activateOrSucceedOwner(std::function<void(InstanceRole)> done);

private:
    InstanceRole roleAfter(const QDBusMessage &answer);
    void succeedOwner(int triesLeft, const std::function<void(InstanceRole)> &done);

    QDBusConnection m_bus;
    ApplicationObject m_object;
    QObject m_context; // its end drops a call under way
    bool m_isOwner = false;
};

} // namespace zeph
