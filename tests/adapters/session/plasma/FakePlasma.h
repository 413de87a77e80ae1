// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <map>
#include <set>

namespace zeph {

/// Plasma's shell with desktops of the test's. It does what our scripts say, by the values that
/// stand in them.
class FakePlasma : public QDBusVirtualObject {
public:
    explicit FakePlasma(QString address) : m_address(std::move(address)) {}

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(m_connection->bus().registerVirtualObject(QStringLiteral("/"), this,
                                                              QDBusConnection::SubPath));
        for (const QString &name :
             {QStringLiteral("org.kde.plasmashell"), QStringLiteral("org.kde.ActivityManager")}) {
            ASSERT_TRUE(eventually([&] { return m_connection->bus().registerService(name); }));
        }
    }
    void vanish() { m_connection.reset(); }

    /// Tells that another activity is the current one.
    void changeActivity() {
        QDBusMessage signal =
            QDBusMessage::createSignal(QStringLiteral("/ActivityManager/Activities"),
                                       QStringLiteral("org.kde.ActivityManager.Activities"),
                                       QStringLiteral("CurrentActivityChanged"));
        signal.setArguments({QStringLiteral("another")});
        m_connection->bus().send(signal);
    }

    QString introspect(const QString & /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection & /*bus*/) override {
        if (message.member() != QStringLiteral("evaluateScript")) {
            return false;
        }
        const QString script = message.arguments().constFirst().toString();
        scripts.append(script);
        if (isSilent) {
            return true;
        }
        if (isLocked) {
            return m_connection->bus().send(
                message.createErrorReply(QDBusError::AccessDenied, QStringLiteral("locked")));
        }
        if (!isDeaf) {
            follow(script);
        }
        return m_connection->bus().send(message.createReply(printed()));
    }

    std::map<int, QString> desktops{{1, QStringLiteral("org.kde.image")}}; ///< their wallpapers
    std::map<int, QString> folders;                                        ///< that ours was told
    std::map<int, QString> pictures; ///< of their own wallpapers
    std::map<int, QString> returned; ///< what they were marked with
    std::map<int, QString> keptFolders;
    std::map<int, QString> starts;
    QStringList scripts;   ///< all that were evaluated
    bool isLocked = false; ///< refuses scripts
    bool isDeaf = false;   ///< takes them, and nothing becomes of it
    bool isSilent = false; ///< never answers

private:
    static QString wordIn(const QString &script, const QString &pattern) {
        return QRegularExpression(pattern).match(script).captured(1);
    }

    void follow(const QString &script) {
        const QString ours = QStringLiteral("com.tavi.Tavi");
        if (script.contains(QStringLiteral("var numbers"))) {
            const QJsonArray list =
                QJsonDocument::fromJson(
                    wordIn(script, QStringLiteral("var numbers = (.*);")).toUtf8())
                    .array();
            for (auto &[number, wallpaper] : desktops) {
                if (list.contains(number)) {
                    wallpaper = ours;
                }
            }
            if (script.contains(QStringLiteral("writeConfig('Returned', '')"))) {
                returned.clear();
            }
            for (const auto &[number, wallpaper] : desktops) {
                if (wallpaper == ours) {
                    folders[number] = wordIn(script, QStringLiteral("'Folder', \"(.*)\""));
                    keptFolders[number] = wordIn(script, QStringLiteral("'Kept', \"(.*)\""));
                    starts[number] = wordIn(script, QStringLiteral("'Start', \"(.*)\""));
                }
            }
        } else if (script.contains(QStringLiteral("var earlier"))) {
            const QJsonObject earlier =
                QJsonDocument::fromJson(
                    wordIn(script, QStringLiteral("var earlier = (.*);")).toUtf8())
                    .object();
            for (auto &[number, wallpaper] : desktops) {
                if (wallpaper == ours) {
                    wallpaper =
                        earlier[QString::number(number)].toString(QStringLiteral("org.kde.image"));
                    if (script.contains(QStringLiteral("writeConfig('Returned', shown)"))) {
                        returned[number] = shown(number);
                    }
                }
            }
        }
    }

    QString shown(int number) const {
        const auto picture = pictures.find(number);
        return desktops.at(number) + u' ' +
               (picture == pictures.end() ? QString() : picture->second);
    }

    QString printed() const {
        QJsonArray list;
        for (const auto &[number, wallpaper] : desktops) {
            list.append(
                QJsonObject{{QStringLiteral("id"), number},
                            {QStringLiteral("wallpaper"), wallpaper},
                            {QStringLiteral("isReturned"),
                             returned.count(number) > 0 && returned.at(number) == shown(number)}});
        }
        return QString::fromUtf8(QJsonDocument(list).toJson(QJsonDocument::Compact)) + u'\n';
    }

    QString m_address;
    std::unique_ptr<BusConnection> m_connection;
};

} // namespace zeph
