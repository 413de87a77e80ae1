// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"
#include "adapters/updates/PackageKitTransaction.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <map>

namespace zeph {

/// PackageKit on a bus: every question has the answer that the test gave for its method.
class FakePackageKit : public QDBusVirtualObject {
public:
    struct Answer {
        std::vector<ToldPackage> packages = {};
        std::vector<uint> percentages = {};
        uint exit = 1;
        uint error = 0;
        QString details = {};
        QString callError = {}; ///< of the call itself, which then has no other answer
    };

    explicit FakePackageKit(QString address) : m_address(std::move(address)) {}

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(m_connection->bus().registerVirtualObject(QStringLiteral("/"), this,
                                                              QDBusConnection::SubPath));
        ASSERT_TRUE(
            m_connection->bus().registerService(QStringLiteral("org.freedesktop.PackageKit")));
    }
    void vanish() { m_connection.reset(); }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override {
        const QString member = message.member();
        if (member == QStringLiteral("CreateTransaction")) {
            return send(message.createReply(
                QVariant::fromValue(QDBusObjectPath(QStringLiteral("/%1_t").arg(++transactions)))));
        }
        calls << member;
        arguments[member] = message.arguments();
        m_path = message.path();
        if (member == QStringLiteral("SetHints") || member == QStringLiteral("Cancel")) {
            return true;
        }
        const Answer answer = trial && isTrial(message) ? *trial : answers[member];
        if (!answer.callError.isEmpty()) {
            return send(message.createErrorReply(answer.callError, QStringLiteral("no")));
        }
        send(message.createReply());
        tell(answer, !mute.contains(member) ||
                         (member == m_trialled && isTrial(message) && !isMuteAboutTrials));
        return true;
    }

    /// Ends the transaction that it was mute about.
    void end(uint exit, uint error = 0) {
        tell({.exit = exit, .error = error, .details = QStringLiteral("ended")}, true);
    }

    void tellPercentage(uint percentage) {
        signal(QStringLiteral("org.freedesktop.DBus.Properties"),
               QStringLiteral("PropertiesChanged"),
               {transactionInterface(), QVariantMap{{QStringLiteral("Percentage"), percentage}},
                QStringList()});
    }

    /// The flags of the last question to install something.
    quint64 flags() const {
        return arguments.at(QStringLiteral("UpdatePackages")).at(0).toULongLong();
    }

    std::map<QString, Answer> answers; ///< by method; success without any
    std::optional<Answer> trial;       ///< of an installation that is only tried
    bool isMuteAboutTrials = false;    ///< as well as about what `mute` names
    QStringList mute;                  ///< methods that do not end by themselves
    QStringList calls;                 ///< all but the making of transactions
    std::map<QString, QVariantList> arguments;
    int transactions = 0;

private:
    static QString transactionInterface() {
        return QStringLiteral("org.freedesktop.PackageKit.Transaction");
    }
    bool isTrial(const QDBusMessage &message) const {
        return message.member() == m_trialled && (message.arguments().at(0).toULongLong() & 4U);
    }
    bool send(const QDBusMessage &message) { return m_connection->bus().send(message); }
    void signal(const QString &interface, const QString &name, const QVariantList &values) {
        QDBusMessage message = QDBusMessage::createSignal(m_path, interface, name);
        message.setArguments(values);
        send(message);
    }
    void tell(const Answer &answer, bool isWhole) {
        for (const uint percentage : answer.percentages) {
            tellPercentage(percentage);
        }
        for (const ToldPackage &package : answer.packages) {
            signal(transactionInterface(), QStringLiteral("Package"),
                   {package.info, package.id, QStringLiteral("A package")});
        }
        if (!isWhole) {
            return;
        }
        if (answer.error != 0) {
            signal(transactionInterface(), QStringLiteral("ErrorCode"),
                   {answer.error, answer.details});
        }
        signal(transactionInterface(), QStringLiteral("Finished"), {answer.exit, 12U});
    }

    const QString m_trialled = QStringLiteral("UpdatePackages");
    QString m_address;
    QString m_path; // of the last transaction
    std::unique_ptr<BusConnection> m_connection;
};

} // namespace zeph
