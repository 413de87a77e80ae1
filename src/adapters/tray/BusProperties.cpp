// SPDX-License-Identifier: MIT
#include "adapters/tray/BusProperties.h"

#include <QDBusError>
#include <QDBusVariant>

namespace zeph {

using namespace Qt::StringLiterals;

std::optional<QDBusMessage> answerOnProperties(const QDBusMessage &message,
                                               const QString &interface,
                                               const std::function<QVariantMap()> &properties) {
    if (message.interface() != u"org.freedesktop.DBus.Properties"_s) {
        return std::nullopt;
    }
    const QVariantList arguments = message.arguments();
    const QString asked = arguments.isEmpty() ? QString() : arguments.constFirst().toString();
    if (!asked.isEmpty() && asked != interface) {
        return message.createErrorReply(QDBusError::UnknownInterface,
                                        u"There is no interface %1 here"_s.arg(asked));
    }
    if (message.member() == u"GetAll"_s && message.signature() == u"s"_s) {
        return message.createReply(properties());
    }
    if (message.member() == u"Get"_s && message.signature() == u"ss"_s) {
        const QString name = arguments.at(1).toString();
        const QVariantMap all = properties();
        const auto found = all.find(name);
        if (found == all.end()) {
            return message.createErrorReply(QDBusError::UnknownProperty,
                                            u"There is no property %1 here"_s.arg(name));
        }
        return message.createReply(QVariant::fromValue(QDBusVariant(*found)));
    }
    if (message.member() == u"Set"_s) {
        return message.createErrorReply(QDBusError::PropertyReadOnly,
                                        u"The properties can only be read"_s);
    }
    return std::nullopt;
}

} // namespace zeph
