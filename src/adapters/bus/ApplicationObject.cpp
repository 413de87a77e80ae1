// SPDX-License-Identifier: MIT
#include "adapters/bus/ApplicationObject.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString interfaceName = u"org.freedesktop.Application"_s;

const QString introspection = uR"(  <interface name="org.freedesktop.Application">
    <method name="Activate">
      <arg type="a{sv}" name="platform_data" direction="in"/>
    </method>
    <method name="Open">
      <arg type="as" name="uris" direction="in"/>
      <arg type="a{sv}" name="platform_data" direction="in"/>
    </method>
    <method name="ActivateAction">
      <arg type="s" name="action_name" direction="in"/>
      <arg type="av" name="parameter" direction="in"/>
      <arg type="a{sv}" name="platform_data" direction="in"/>
    </method>
  </interface>
)"_s;

} // namespace

ApplicationObject::ApplicationObject(std::function<void(const ApplicationRequest &)> handler)
    : m_handler(std::move(handler)) {}

QString ApplicationObject::introspect(const QString &) const {
    return introspection;
}

std::optional<ApplicationRequest> ApplicationObject::requestIn(const QDBusMessage &message) {
    const QString member = message.member();
    const QString signature = message.signature();
    const QVariantList arguments = message.arguments();
    ApplicationRequest request;
    if (member == u"Activate"_s && signature == u"a{sv}"_s) {
        request.kind = ApplicationRequest::Kind::activate;
    } else if (member == u"Open"_s && signature == u"asa{sv}"_s) {
        request.kind = ApplicationRequest::Kind::open;
        request.uris = arguments.constFirst().toStringList();
    } else if (member == u"ActivateAction"_s && signature == u"sava{sv}"_s) {
        request.kind = ApplicationRequest::Kind::action;
        request.action = arguments.constFirst().toString();
        request.parameters = qdbus_cast<QVariantList>(arguments.at(1));
    } else {
        return std::nullopt;
    }
    request.platformData = qdbus_cast<QVariantMap>(arguments.constLast());
    return request;
}

bool ApplicationObject::handleMessage(const QDBusMessage &message,
                                      const QDBusConnection &connection) {
    // A caller may leave the interface out.
    if (!message.interface().isEmpty() && message.interface() != interfaceName) {
        return false;
    }
    const std::optional<ApplicationRequest> request = requestIn(message);
    if (!request) {
        return false; // the bus library answers that there is no such method
    }
    if (message.isReplyRequired()) {
        QDBusConnection(connection).send(message.createReply());
    }
    if (m_handler) {
        m_handler(*request);
    }
    return true;
}

} // namespace zeph
