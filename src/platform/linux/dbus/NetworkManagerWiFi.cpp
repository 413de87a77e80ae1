// SPDX-License-Identifier: MIT
#include "platform/linux/dbus/NetworkManagerWiFi.h"

#include "platform/linux/dbus/DBusCalls.h"
#include "platform/linux/dbus/PropertyWatch.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusServiceWatcher>

#include <algorithm>
#include <initializer_list>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString service = u"org.freedesktop.NetworkManager"_s;
const QString managerPath = u"/org/freedesktop/NetworkManager"_s;
const QString managerInterface = u"org.freedesktop.NetworkManager"_s;
const QString connectionInterface = u"org.freedesktop.NetworkManager.Connection.Active"_s;
const QString accessPointInterface = u"org.freedesktop.NetworkManager.AccessPoint"_s;

constexpr uint stateActivated = 2;

// No machine has as many connections at once; a daemon that claims so is not believed.
constexpr qsizetype connectionLimit = 64;

bool touches(const QVariantMap &changed, const QStringList &invalidated,
             std::initializer_list<QString> names) {
    return std::any_of(names.begin(), names.end(), [&](const QString &name) {
        return changed.contains(name) || invalidated.contains(name);
    });
}

/// The path in `value`; empty for none, which the daemon writes as "/".
QString pathOf(const QVariant &value) {
    const QString path = value.value<QDBusObjectPath>().path();
    return path == u"/"_s ? QString() : path;
}

/// The primary connection first, for the case of two wireless ones.
QStringList connectionPaths(const QVariantMap &manager) {
    QStringList paths{pathOf(manager.value(u"PrimaryConnection"_s))};
    const QVariant list = manager.value(u"ActiveConnections"_s);
    if (list.canConvert<QDBusArgument>()) {
        const auto argument = list.value<QDBusArgument>();
        if (argument.currentSignature() == u"ao"_s) {
            for (const QDBusObjectPath &path : qdbus_cast<QList<QDBusObjectPath>>(argument)) {
                paths << path.path();
            }
        }
    }
    paths.removeAll(QString());
    paths.removeDuplicates();
    return paths.first(std::min(paths.size(), connectionLimit));
}

QString joinedAccessPoint(const QVariantMap &connection) {
    const bool isJoined = connection.value(u"Type"_s).toString() == u"802-11-wireless"_s &&
                          connection.value(u"State"_s).toUInt() == stateActivated;
    return isJoined ? pathOf(connection.value(u"SpecificObject"_s)) : QString();
}

/// The name in the bytes of an access point, which may be anything: what is not UTF-8, or would
/// not show, becomes the replacement character. A hidden name is empty or all zero bytes.
std::optional<QString> nameIn(const QByteArray &bytes) {
    if (std::all_of(bytes.begin(), bytes.end(), [](char byte) { return byte == '\0'; })) {
        return std::nullopt;
    }
    QString name = QString::fromUtf8(bytes);
    for (QChar &character : name) {
        if (character.category() == QChar::Other_Control) {
            character = QChar::ReplacementCharacter;
        }
    }
    return name;
}

} // namespace

NetworkManagerWiFi::NetworkManagerWiFi(QDBusConnection bus) : m_bus(std::move(bus)) {
    if (!m_bus.isConnected()) {
        return;
    }
    m_serviceWatch = std::make_unique<QDBusServiceWatcher>(
        service, m_bus, QDBusServiceWatcher::WatchForOwnerChange);
    QObject::connect(m_serviceWatch.get(), &QDBusServiceWatcher::serviceOwnerChanged, &m_context,
                     [this](const QString &, const QString &, const QString &newOwner) {
                         forget();
                         if (!newOwner.isEmpty()) {
                             refresh();
                         }
                     });
    m_managerWatch = std::make_unique<PropertyWatch>(
        m_bus, service, managerPath, managerInterface,
        [this](const QVariantMap &changed, const QStringList &invalidated) {
            if (touches(changed, invalidated, {u"PrimaryConnection"_s, u"ActiveConnections"_s})) {
                refresh();
            }
        });
    m_connectionWatch = std::make_unique<PropertyWatch>(
        m_bus, service, QString(), connectionInterface,
        [this](const QVariantMap &changed, const QStringList &invalidated) {
            if (touches(changed, invalidated, {u"State"_s, u"SpecificObject"_s, u"Type"_s})) {
                refresh();
            }
        });
    refresh();
}

NetworkManagerWiFi::~NetworkManagerWiFi() = default;

void NetworkManagerWiFi::forget() {
    ++m_inquiry;
    m_isInquiring = false;
    m_isStale = false;
    m_ssid.reset();
    m_accessPointWatch.reset();
}

/// Asks anew, once for all the changes that come while the answers are under way: joining a
/// network is a burst of a dozen signals.
void NetworkManagerWiFi::refresh() {
    if (m_isInquiring) {
        m_isStale = true;
        return;
    }
    m_isInquiring = true;
    m_isStale = false;
    ++m_inquiry;
    ask(managerPath, managerInterface, [this](const std::optional<QVariantMap> &manager) {
        manager ? readConnections(*manager) : finishWithout();
    });
}

void NetworkManagerWiFi::ask(const QString &path, const QString &interface,
                             std::function<void(const std::optional<QVariantMap> &)> done) {
    getAllProperties(m_bus, service, path, interface, &m_context,
                     [this, inquiry = m_inquiry,
                      done = std::move(done)](const std::optional<QVariantMap> &properties) {
                         if (inquiry == m_inquiry) {
                             done(properties);
                         }
                     });
}

void NetworkManagerWiFi::readConnections(const QVariantMap &manager) {
    const QStringList paths = connectionPaths(manager);
    m_candidates.assign(static_cast<std::size_t>(paths.size()), {});
    if (paths.isEmpty()) {
        finishWithout();
        return;
    }
    std::size_t index = 0;
    for (const QString &path : paths) {
        ask(path, connectionInterface, [this, index](const std::optional<QVariantMap> &connection) {
            if (index >= m_candidates.size()) {
                return; // an earlier one was chosen meanwhile
            }
            Candidate &candidate = m_candidates.at(index);
            candidate.isAnswered = true;
            candidate.accessPoint = connection ? joinedAccessPoint(*connection) : QString();
            chooseConnection();
        });
        ++index;
    }
}

void NetworkManagerWiFi::chooseConnection() {
    for (const Candidate &candidate : m_candidates) {
        if (!candidate.isAnswered) {
            return; // an earlier one wins over those that answered already
        }
        if (!candidate.accessPoint.isEmpty()) {
            const QString path = candidate.accessPoint;
            m_candidates.clear();
            readAccessPoint(path);
            return;
        }
    }
    finishWithout();
}

/// An access point that has a name keeps it: a renamed network is another object. Only one with a
/// hidden name is followed, since the signals of an access point tell of its strength every few
/// seconds and would wake the process for nothing.
void NetworkManagerWiFi::readAccessPoint(const QString &path) {
    m_accessPointWatch = std::make_unique<PropertyWatch>(
        m_bus, service, path, accessPointInterface,
        [this](const QVariantMap &changed, const QStringList &invalidated) {
            if (touches(changed, invalidated, {u"Ssid"_s})) {
                refresh();
            }
        });
    ask(path, accessPointInterface, [this](const std::optional<QVariantMap> &accessPoint) {
        finish(accessPoint ? nameIn(accessPoint->value(u"Ssid"_s).toByteArray()) : std::nullopt);
    });
}

void NetworkManagerWiFi::finishWithout() {
    m_accessPointWatch.reset();
    finish(std::nullopt);
}

void NetworkManagerWiFi::finish(const std::optional<QString> &ssid) {
    m_ssid = ssid;
    m_candidates.clear();
    m_isInquiring = false;
    if (m_ssid) {
        m_accessPointWatch.reset();
    }
    if (m_isStale) {
        refresh();
    }
}

} // namespace zeph
