// SPDX-License-Identifier: MIT
#include "platform/linux/focus/NotificationSwitch.h"

#include "platform/linux/focus/TruthIn.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString notificationsName = u"org.freedesktop.Notifications"_s;
const QString notificationsPath = u"/org/freedesktop/Notifications"_s;
const QString inhibited = u"Inhibited"_s;

QDBusMessage question() {
    QDBusMessage call = QDBusMessage::createMethodCall(
        notificationsName, notificationsPath, u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    call << notificationsName << inhibited; // the interface has the service's name
    return call;
}

std::optional<bool> readAnswer(const QDBusMessage &answer) {
    return answer.type() == QDBusMessage::ReplyMessage && answer.signature() == u"v"_s
               ? truthIn(answer.arguments().constFirst())
               : std::nullopt;
}

} // namespace

NotificationSwitch::NotificationSwitch(const QDBusConnection &bus, std::function<void()> news)
    : m_watch(bus, notificationsName, notificationsPath, notificationsName,
              [this](const QVariantMap &values, const QStringList &invalidated) {
                  changed(values, invalidated);
              }),
      m_answer(bus, question(), &readAnswer, std::move(news)) {}

void NotificationSwitch::changed(const QVariantMap &values, const QStringList &invalidated) {
    const auto found = values.find(inhibited);
    if (found != values.end()) {
        m_answer.set(truthIn(*found));
    } else if (invalidated.contains(inhibited)) {
        m_answer.ask();
    }
}

} // namespace zeph
