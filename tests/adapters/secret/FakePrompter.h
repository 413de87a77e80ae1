// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusVirtualObject>
#include <QVariantMap>

namespace zeph {

/// The desktop's dialog for passwords, as GNOME Keyring asks for it: a person that closes every
/// prompt, or one that is away and leaves it standing open. Works in the event loop.
class FakePrompter : public QDBusVirtualObject {
public:
    enum class Person { refuses, isAway };

    FakePrompter(QDBusConnection bus, Person person) : m_bus(std::move(bus)), m_person(person) {
        m_bus.registerVirtualObject(QStringLiteral("/org/gnome/keyring/Prompter"), this);
        m_bus.registerService(name());
    }
    ~FakePrompter() override {
        m_bus.unregisterService(name());
        m_bus.unregisterObject(QStringLiteral("/org/gnome/keyring/Prompter"));
    }
    FakePrompter(const FakePrompter &) = delete;
    FakePrompter &operator=(const FakePrompter &) = delete;

    /// Prompts that came up so far.
    int shown() const { return m_shown; }

    QString introspect(const QString & /*path*/) const override { return {}; }

    bool handleMessage(const QDBusMessage &message, const QDBusConnection &bus) override {
        if (message.member() == QStringLiteral("BeginPrompting")) {
            bus.send(message.createReply());
            answer(message, QString());
        } else if (message.member() == QStringLiteral("PerformPrompt")) {
            ++m_shown;
            bus.send(message.createReply());
            if (m_person == Person::refuses) {
                answer(message, QStringLiteral("no"));
            }
        } else if (message.member() == QStringLiteral("StopPrompting")) {
            bus.send(message.createReply());
            call(message, QStringLiteral("PromptDone"), {});
        } else {
            return false;
        }
        return true;
    }

private:
    static QString name() { return QStringLiteral("org.gnome.keyring.SystemPrompter"); }

    void answer(const QDBusMessage &question, const QString &reply) {
        call(question, QStringLiteral("PromptReady"), {reply, QVariantMap(), QString()});
    }

    void call(const QDBusMessage &question, const QString &method, const QVariantList &arguments) {
        const auto path = question.arguments().value(0).value<QDBusObjectPath>().path();
        auto message = QDBusMessage::createMethodCall(
            question.service(), path,
            QStringLiteral("org.gnome.keyring.internal.Prompter.Callback"), method);
        message.setArguments(arguments);
        m_bus.send(message);
    }

    QDBusConnection m_bus;
    Person m_person;
    int m_shown = 0;
};

} // namespace zeph
