// SPDX-License-Identifier: MIT
#include "adapters/focus/NotificationSwitch.h"

#include "adapters/focus/TruthIn.h"

#include <QDBusArgument>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString notificationsName = u"org.freedesktop.Notifications"_s;
const QString notificationsPath = u"/org/freedesktop/Notifications"_s;
const QString propertiesInterface = u"org.freedesktop.DBus.Properties"_s;
const QString inhibited = u"Inhibited"_s;

std::optional<bool> readAnswer(const QDBusMessage &answer) {
    return answer.type() == QDBusMessage::ReplyMessage && answer.signature() == u"v"_s
               ? truthIn(answer.arguments().constFirst())
               : std::nullopt;
}

} // namespace

// The interface has the service's name.
NotificationSwitch::NotificationSwitch(const QDBusConnection &bus, std::function<void()> news)
    : m_answer(bus,
               {notificationsName,
                notificationsPath,
                propertiesInterface,
                u"Get"_s,
                {notificationsName, inhibited}},
               &readAnswer, std::move(news)) {
    m_answer.service().follow({{},
                               notificationsPath,
                               propertiesInterface,
                               u"PropertiesChanged"_s,
                               {notificationsName},
                               u"sa{sv}as"_s},
                              [this](const QDBusMessage &signal) { changed(signal); });
}

void NotificationSwitch::changed(const QDBusMessage &signal) {
    const auto values = qdbus_cast<QVariantMap>(signal.arguments().at(1));
    const auto found = values.find(inhibited);
    if (found != values.end()) {
        m_answer.set(truthIn(*found));
    } else if (signal.arguments().at(2).toStringList().contains(inhibited)) {
        m_answer.ask();
    }
}

} // namespace zeph
