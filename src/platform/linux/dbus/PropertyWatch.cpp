// SPDX-License-Identifier: MIT
#include "platform/linux/dbus/PropertyWatch.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const char *const propertiesSlot = SLOT(propertiesChanged(QString, QVariantMap, QStringList));

} // namespace

// The interface stands in the match rule, so that the bus does not wake this process for others.
PropertyWatch::PropertyWatch(QDBusConnection bus, QString service, QString path, QString interface,
                             Handler handler)
    : m_bus(std::move(bus)),
      m_service(std::move(service)),
      m_path(std::move(path)),
      m_interface(std::move(interface)),
      m_handler(std::move(handler)) {
    m_bus.connect(m_service, m_path, u"org.freedesktop.DBus.Properties"_s, u"PropertiesChanged"_s,
                  {m_interface}, u"sa{sv}as"_s, this, propertiesSlot);
}

PropertyWatch::~PropertyWatch() {
    m_bus.disconnect(m_service, m_path, u"org.freedesktop.DBus.Properties"_s,
                     u"PropertiesChanged"_s, {m_interface}, u"sa{sv}as"_s, this, propertiesSlot);
}

void PropertyWatch::propertiesChanged(const QString &interface, const QVariantMap &changed,
                                      const QStringList &invalidated) {
    if (interface == m_interface && m_handler) {
        m_handler(changed, invalidated);
    }
}

} // namespace zeph
