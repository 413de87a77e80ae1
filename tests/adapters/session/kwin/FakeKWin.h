// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QRect>
#include <QRegularExpression>

#include <map>

namespace zeph {

/// KWin's scripting and Plasma's struts, which play a script that was loaded as the test says.
class FakeKWin : public QDBusVirtualObject {
public:
    explicit FakeKWin(QString address) : m_address(std::move(address)) {}

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(m_connection->bus().registerVirtualObject(QStringLiteral("/"), this,
                                                              QDBusConnection::SubPath));
        for (const QString &name :
             {QStringLiteral("org.kde.KWin"), QStringLiteral("org.kde.plasmashell")}) {
            ASSERT_TRUE(eventually([&] { return m_connection->bus().registerService(name); }));
        }
    }
    void vanish() {
        m_connection.reset();
        scripts.clear();
        runs.clear();
    }

    /// As the script does when another window becomes active.
    void tellFront(const QString &windowClass, const QString &desktopFile, int process) {
        call(QStringLiteral("Front"), {windowClass, desktopFile, process});
    }
    void tellPanels() { call(QStringLiteral("Panels"), {}); }

    void call(const QString &member, const QVariantList &arguments) {
        callFrom(m_connection->bus(), member, arguments);
    }

    /// The same by whoever `bus` belongs to.
    void callFrom(const QDBusConnection &bus, const QString &member,
                  const QVariantList &arguments) const {
        QDBusMessage message =
            QDBusMessage::createMethodCall(ourName(), QStringLiteral("/com/tavi/Tavi/windows"),
                                           QStringLiteral("com.tavi.Tavi.Windows"), member);
        message.setArguments(arguments);
        bus.send(message);
    }

    /// The name on the bus that the script is told to call.
    QString ourName() const {
        const QRegularExpression name(QStringLiteral(R"re(callDBus\("([^"]+)")re"));
        return name.match(QString::fromUtf8(text)).captured(1);
    }

    QString introspect(const QString & /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection & /*bus*/) override {
        const QString member = message.member();
        const QVariantList arguments = message.arguments();
        if (member == QStringLiteral("unloadScript")) {
            return answer(message, scripts.erase(arguments.constFirst().toString()) > 0);
        }
        if (member == QStringLiteral("loadScript")) {
            return answer(message, load(arguments.at(0).toString(), arguments.at(1).toString()));
        }
        if (member == QStringLiteral("run") && message.path().startsWith(scriptPath)) {
            runs.append(message.path());
            return m_connection->bus().send(message.createReply());
        }
        if (member == QStringLiteral("availableScreenRect")) {
            ++questions;
            const auto area = areas.find(arguments.constFirst().toString());
            return answer(message, area == areas.end() ? QRect() : area->second);
        }
        return m_connection->bus().send(
            message.createErrorReply(QDBusError::UnknownObject, message.path()));
    }

    std::map<QString, int> scripts; ///< numbers of those that are loaded, by name
    QStringList runs;               ///< paths of those that were started
    QByteArray text;                ///< of the one that was loaded last
    QString scriptPath = QStringLiteral("/1");
    std::map<QString, QRect> areas; ///< by output
    int questions = 0;              ///< for an area

private:
    int load(const QString &path, const QString &name) {
        QFile file(path);
        if (scripts.count(name) > 0 || !file.open(QIODevice::ReadOnly)) {
            return -1;
        }
        text = file.readAll();
        scripts[name] = 17;
        return 17;
    }
    bool answer(const QDBusMessage &question, const QVariant &value) {
        return m_connection->bus().send(question.createReply(value));
    }

    QString m_address;
    std::unique_ptr<BusConnection> m_connection;
};

} // namespace zeph
