// SPDX-License-Identifier: MIT
#include "adapters/updates/PackageKitTransaction.h"

#include "adapters/bus/BusService.h"
#include "adapters/bus/DBusCalls.h"
#include "adapters/updates/PackageProblem.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>

#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString serviceName = u"org.freedesktop.PackageKit"_s; // its interface has the same name
const QString servicePath = u"/org/freedesktop/PackageKit"_s;
const QString transactionInterface = u"org.freedesktop.PackageKit.Transaction"_s;
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;

// The service's own numbers.
constexpr uint exitSuccess = 1;
constexpr uint exitCancelled = 3;
constexpr uint exitPreempted = 9;
constexpr uint errorCancelled = 17;
constexpr uint errorNotAuthorized = 48;

// The answer to the question may wait for the user's password.
constexpr int anyTime = std::numeric_limits<int>::max();

bool isRefusal(const QString &errorName) {
    return errorName == u"org.freedesktop.PackageKit.Transaction.RefusedByPolicy"_s ||
           errorName == u"org.freedesktop.PackageKit.Denied"_s ||
           errorName == u"org.freedesktop.PackageKit.Transaction.Denied"_s ||
           errorName == u"org.freedesktop.DBus.Error.AccessDenied"_s ||
           errorName == u"org.freedesktop.DBus.Error.AuthFailed"_s ||
           errorName == u"org.freedesktop.DBus.Error.InteractiveAuthorizationRequired"_s;
}

} // namespace

PackageKitTransaction::PackageKitTransaction(QDBusConnection systemBus, PackageQuestion question,
                                             Progress progress, Finished finished)
    : m_bus(std::move(systemBus)),
      m_question(std::move(question)),
      m_progress(std::move(progress)),
      m_finished(std::move(finished)) {
    if (m_bus.isConnected()) {
        create();
    } else {
        finish({.kind = PackageOutcome::Kind::absent});
    }
}

PackageKitTransaction::~PackageKitTransaction() = default;

/// Unlike most calls of ours this one starts the service: it ends by itself when nobody needs it.
void PackageKitTransaction::create() {
    const QDBusMessage call = QDBusMessage::createMethodCall(serviceName, servicePath, serviceName,
                                                             u"CreateTransaction"_s);
    auto *watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), &m_context);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &m_context,
                     [this](QDBusPendingCallWatcher *finished) {
                         finished->deleteLater();
                         haveTransaction(finished->reply());
                     });
}

void PackageKitTransaction::haveTransaction(const QDBusMessage &answer) {
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != u"o"_s) {
        failCall(answer);
        return;
    }
    if (m_isCancelled) { // it ends by itself when nobody asks anything of it
        finish({.kind = PackageOutcome::Kind::cancelled});
        return;
    }
    m_path = answer.arguments().constFirst().value<QDBusObjectPath>().path();
    // The process that answered, whatever becomes of the name.
    m_service = std::make_unique<BusService>(m_bus, answer.service(), [this] { ownerChanged(); });
    follow();
}

void PackageKitTransaction::ownerChanged() {
    if (m_service->isThere()) {
        ask();
    } else {
        finish({.problem = u"Your system's package service went away."_s});
    }
}

void PackageKitTransaction::follow() {
    const auto onSignal = [this](const QString &name, const QString &signature,
                                 SignalWatch::Handler handler) {
        m_service->follow({{}, m_path, transactionInterface, name, {}, signature},
                          std::move(handler));
    };
    onSignal(u"Package"_s, u"uss"_s, [this](const QDBusMessage &signal) {
        m_packages.push_back(
            {signal.arguments().at(0).toUInt(), signal.arguments().at(1).toString()});
    });
    onSignal(u"ErrorCode"_s, u"us"_s, [this](const QDBusMessage &signal) {
        m_errorCode = signal.arguments().at(0).toUInt();
        m_errorDetails = signal.arguments().at(1).toString();
    });
    onSignal(u"Finished"_s, u"uu"_s,
             [this](const QDBusMessage &signal) { ended(signal.arguments().at(0).toUInt()); });
    m_service->follow({{},
                       m_path,
                       propertiesInterface,
                       u"PropertiesChanged"_s,
                       {transactionInterface},
                       u"sa{sv}as"_s},
                      [this](const QDBusMessage &signal) { propertiesChanged(signal); });
}

void PackageKitTransaction::ask() {
    m_service->send(m_path, transactionInterface, u"SetHints"_s,
                    {QStringList{u"interactive=true"_s, u"background=false"_s}});
    m_service->ask(m_path, transactionInterface, m_question.method, m_question.arguments, anyTime,
                   [this](const QDBusMessage &answer) {
                       if (answer.type() != QDBusMessage::ReplyMessage) {
                           failCall(answer);
                       }
                   });
    if (m_isCancelled) {
        cancel();
    }
}

void PackageKitTransaction::cancel() {
    m_isCancelled = true;
    if (m_service) {
        m_service->send(m_path, transactionInterface, u"Cancel"_s, {});
    }
}

void PackageKitTransaction::propertiesChanged(const QDBusMessage &signal) {
    constexpr uint whole = 100; // and one more stands for unknown
    const auto values = qdbus_cast<QVariantMap>(signal.arguments().at(1));
    const auto percentage = values.find(u"Percentage"_s);
    if (percentage != values.end() && !m_isFinished) {
        const uint percent = percentage->toUInt();
        m_progress(percent <= whole ? static_cast<int>(percent) : -1);
    }
}

void PackageKitTransaction::ended(uint exit) {
    using Kind = PackageOutcome::Kind;
    if (exit == exitSuccess) {
        finish({.kind = Kind::done, .packages = std::move(m_packages)});
    } else if (m_errorCode == errorNotAuthorized) {
        finish({.kind = Kind::refused});
    } else if (exit == exitCancelled || exit == exitPreempted || m_errorCode == errorCancelled) {
        finish({.kind = Kind::cancelled});
    } else {
        finish({.problem = packageProblem(m_errorCode, m_errorDetails), .code = m_errorCode});
    }
}

void PackageKitTransaction::failCall(const QDBusMessage &error) {
    using Kind = PackageOutcome::Kind;
    if (isRefusal(error.errorName())) {
        finish({.kind = Kind::refused});
    } else if (!m_service && tellsOfNoService(error.errorName())) {
        finish({.kind = Kind::absent});
    } else {
        finish({.problem = packageProblem(0, error.errorMessage())});
    }
}

void PackageKitTransaction::finish(PackageOutcome outcome) {
    if (std::exchange(m_isFinished, true)) {
        return;
    }
    QMetaObject::invokeMethod(
        &m_context,
        [this, outcome = std::move(outcome)] {
            const Finished finished = std::move(m_finished);
            finished(outcome); // which may end this
        },
        Qt::QueuedConnection);
}

} // namespace zeph
