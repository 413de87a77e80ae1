// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/bus/PrivateBus.h"

#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QVariantMap>

#include <map>
#include <vector>

namespace zeph {

/// A service whose objects have the properties of one interface, and that answers as the test
/// likes.
class FakeObjects : public QDBusVirtualObject {
public:
    explicit FakeObjects(QString address) : m_address(std::move(address)) {}

    static QString name() { return QStringLiteral("com.tavi.Played"); }
    static QString interface() { return QStringLiteral("com.tavi.Played.Object"); }

    void appear() {
        m_connection = std::make_unique<BusConnection>(m_address);
        ASSERT_TRUE(m_connection->bus().registerVirtualObject(QStringLiteral("/"), this,
                                                              QDBusConnection::SubPath));
        ASSERT_TRUE(eventually([&] { return m_connection->bus().registerService(name()); }));
    }
    void vanish() {
        m_late.clear();
        m_connection.reset();
    }

    /// Signals a change of `values`, and of `invalidated` by name alone.
    void change(const QString &path, const QVariantMap &values,
                const QStringList &invalidated = {}) {
        objects[path].insert(values);
        QDBusMessage signal =
            QDBusMessage::createSignal(path, QStringLiteral("org.freedesktop.DBus.Properties"),
                                       QStringLiteral("PropertiesChanged"));
        signal << interface() << values << invalidated;
        m_connection->bus().send(signal);
    }

    /// Answers what was asked while it was mute.
    void answerLate() {
        isMute = false;
        for (const QDBusMessage &question : std::exchange(m_late, {})) {
            m_connection->bus().send(answerTo(question));
        }
    }

    QString introspect(const QString &) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &) override {
        ++questions;
        if (isMute) {
            m_late.push_back(message);
            return true;
        }
        return m_connection->bus().send(answerTo(message));
    }

    std::map<QString, QVariantMap> objects;
    QVariant instead; ///< answered to everything while it is valid
    int questions = 0;
    bool isMute = false;

private:
    QDBusMessage answerTo(const QDBusMessage &question) const {
        const auto object = objects.find(question.path());
        if (instead.isValid()) {
            return question.createReply(instead);
        }
        return object == objects.end()
                   ? question.createErrorReply(QDBusError::UnknownObject, question.path())
                   : question.createReply(QVariant(object->second));
    }

    QString m_address;
    std::unique_ptr<BusConnection> m_connection;
    std::vector<QDBusMessage> m_late;
};

} // namespace zeph
