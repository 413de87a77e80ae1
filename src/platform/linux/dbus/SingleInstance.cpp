// SPDX-License-Identifier: MIT
#include "platform/linux/dbus/SingleInstance.h"

#include "platform/linux/dbus/DBusCalls.h"

#include <QDBusConnectionInterface>
#include <QDBusReply>
#include <QTimer>

#include <chrono>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString serviceName = u"com.tavi.Tavi"_s;
const QString objectPath = u"/com/tavi/Tavi"_s;

constexpr int ownerLimitMilliseconds = 2000;

// An end may take half a second; a machine that logs its user in is slow.
constexpr std::chrono::milliseconds successionPause{100};
constexpr int successionTries = 20;

} // namespace

SingleInstance::SingleInstance(QDBusConnection sessionBus,
                               std::function<void(const ApplicationRequest &)> handler)
    : m_bus(std::move(sessionBus)), m_object(std::move(handler)) {}

SingleInstance::~SingleInstance() {
    if (m_isOwner) {
        m_bus.unregisterObject(objectPath);
        if (m_bus.isConnected()) {
            m_bus.interface()->unregisterService(serviceName);
        }
    }
}

InstanceRole SingleInstance::claim() {
    if (m_isOwner) {
        return InstanceRole::primary;
    }
    if (!m_bus.isConnected() || !m_bus.interface()) {
        return InstanceRole::noBus;
    }
    // The object stands before the name is taken, so that no request finds the name empty.
    if (!m_bus.registerVirtualObject(objectPath, &m_object)) {
        return InstanceRole::noBus;
    }
    const QDBusReply<QDBusConnectionInterface::RegisterServiceReply> reply =
        m_bus.interface()->registerService(serviceName, QDBusConnectionInterface::DontQueueService,
                                           QDBusConnectionInterface::DontAllowReplacement);
    m_isOwner = reply.isValid() && reply.value() == QDBusConnectionInterface::ServiceRegistered;
    if (m_isOwner) {
        return InstanceRole::primary;
    }
    m_bus.unregisterObject(objectPath);
    return reply.isValid() ? InstanceRole::secondary : InstanceRole::noBus;
}

void SingleInstance::activateOwner(std::function<void(bool)> done) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        serviceName, objectPath, u"org.freedesktop.Application"_s, u"Activate"_s);
    call << QVariantMap();
    callAsync(m_bus, call, ownerLimitMilliseconds, &m_context,
              [done = std::move(done)](const QDBusMessage &answer) {
                  done(answer.type() == QDBusMessage::ReplyMessage);
              });
}

void SingleInstance::activateOrSucceedOwner(std::function<void(InstanceRole)> done) {
    activateOwner([this, done = std::move(done)](bool isAnswered) {
        if (isAnswered) {
            done(InstanceRole::secondary);
        } else {
            succeedOwner(successionTries, done);
        }
    });
}

void SingleInstance::succeedOwner(int triesLeft, const std::function<void(InstanceRole)> &done) {
    const InstanceRole role = claim();
    if (role != InstanceRole::secondary || triesLeft <= 1) {
        done(role);
        return;
    }
    QTimer::singleShot(successionPause, &m_context,
                       [this, triesLeft, done] { succeedOwner(triesLeft - 1, done); });
}

} // namespace zeph
