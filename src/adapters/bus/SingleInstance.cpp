// SPDX-License-Identifier: MIT
#include "adapters/bus/SingleInstance.h"

#include "adapters/bus/DBusCalls.h"

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

// Of the bus: what RequestName is told, and what it answers.
constexpr uint doNotQueue = 4;
constexpr uint primaryOwner = 1;

QDBusMessage callOfTheBus(const QString &method) {
    return QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                          u"org.freedesktop.DBus"_s, method);
}

} // namespace

SingleInstance::SingleInstance(QDBusConnection sessionBus,
                               std::function<void(const ApplicationRequest &)> handler)
    : m_bus(std::move(sessionBus)), m_object(std::move(handler)) {}

SingleInstance::~SingleInstance() {
    if (m_isOwner) {
        m_bus.unregisterObject(objectPath);
        QDBusMessage release = callOfTheBus(u"ReleaseName"_s);
        release << serviceName;
        m_bus.send(release);
    }
}

void SingleInstance::claim(std::function<void(InstanceRole)> done) {
    // The object stands before the name is taken, so that no request finds the name empty.
    const bool canClaim =
        m_bus.isConnected() && (m_isOwner || m_bus.registerVirtualObject(objectPath, &m_object));
    if (m_isOwner || !canClaim) {
        const InstanceRole role = m_isOwner ? InstanceRole::primary : InstanceRole::noBus;
        QMetaObject::invokeMethod(
            &m_context, [done = std::move(done), role] { done(role); }, Qt::QueuedConnection);
        return;
    }
    QDBusMessage request = callOfTheBus(u"RequestName"_s);
    request << serviceName << doNotQueue;
    callAsync(
        m_bus, request, busDefaultTimeout, &m_context,
        [this, done = std::move(done)](const QDBusMessage &answer) { done(roleAfter(answer)); });
}

InstanceRole SingleInstance::roleAfter(const QDBusMessage &answer) {
    const bool isAnswer =
        answer.type() == QDBusMessage::ReplyMessage && answer.signature() == u"u"_s;
    m_isOwner = isAnswer && answer.arguments().constFirst().toUInt() == primaryOwner;
    if (m_isOwner) {
        return InstanceRole::primary;
    }
    m_bus.unregisterObject(objectPath);
    return isAnswer ? InstanceRole::secondary : InstanceRole::noBus;
}

void SingleInstance::activateOwner(std::function<void(bool)> done) {
    if (!m_bus.isConnected()) { // a call would never come to an end
        QMetaObject::invokeMethod(
            &m_context, [done = std::move(done)] { done(false); }, Qt::QueuedConnection);
        return;
    }
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
    claim([this, triesLeft, done](InstanceRole role) {
        if (role != InstanceRole::secondary || triesLeft <= 1) {
            done(role);
            return;
        }
        QTimer::singleShot(successionPause, &m_context,
                           [this, triesLeft, done] { succeedOwner(triesLeft - 1, done); });
    });
}

} // namespace zeph
