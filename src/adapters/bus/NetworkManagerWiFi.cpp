// SPDX-License-Identifier: MIT
#include "adapters/bus/NetworkManagerWiFi.h"

#include <QDBusArgument>
#include <QDBusObjectPath>

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString managerPath = u"/org/freedesktop/NetworkManager"_s;
const QString managerInterface = u"org.freedesktop.NetworkManager"_s; // and the service's name
const QString connectionInterface = u"org.freedesktop.NetworkManager.Connection.Active"_s;
const QString accessPointInterface = u"org.freedesktop.NetworkManager.AccessPoint"_s;

constexpr uint stateActivated = 2;

// No machine has as many connections at once; a daemon that claims so is not believed.
constexpr qsizetype connectionLimit = 64;
constexpr std::size_t objectLimit = connectionLimit + 2; // with the daemon and an access point

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

/// Empty for a connection that is wired or does not stand.
QString accessPointOf(const QVariantMap &connection) {
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

NetworkManagerWiFi::NetworkManagerWiFi(const QDBusConnection &bus)
    : m_mirror(bus, managerInterface,
               {{managerInterface, {u"PrimaryConnection"_s, u"ActiveConnections"_s}},
                {connectionInterface, {u"Type"_s, u"State"_s, u"SpecificObject"_s}},
                {accessPointInterface, {u"Ssid"_s}, false}},
               objectLimit, [this] { m_mirror.read(managerPath, managerInterface); }),
      m_changes(m_mirror.onChange([this] { update(); })) {}

void NetworkManagerWiFi::update() {
    const QVariantMap *const manager = m_mirror.properties(managerPath, managerInterface);
    readConnections(manager != nullptr ? connectionPaths(*manager) : QStringList());
    const std::optional<QString> accessPoint = joinedAccessPoint();
    if (!accessPoint) {
        return;
    }
    join(*accessPoint);
    if (!m_mirror.isAwaited(m_accessPoint, accessPointInterface)) {
        const QVariantMap *const known = m_mirror.properties(m_accessPoint, accessPointInterface);
        m_ssid = known != nullptr ? nameIn(known->value(u"Ssid"_s).toByteArray()) : std::nullopt;
        followHiddenName();
    }
}

void NetworkManagerWiFi::readConnections(const QStringList &paths) {
    for (const QString &path : std::exchange(m_connections, paths)) {
        if (!paths.contains(path)) {
            m_mirror.drop(path);
        }
    }
    for (const QString &path : paths) {
        if (!m_mirror.contains(path, connectionInterface)) {
            m_mirror.read(path, connectionInterface);
        }
    }
}

/// Absent until it is known; empty without any.
std::optional<QString> NetworkManagerWiFi::joinedAccessPoint() const {
    for (const QString &path : m_connections) {
        if (m_mirror.isAwaited(path, connectionInterface)) {
            return std::nullopt; // an earlier one wins over those that answered already
        }
        const QVariantMap *const connection = m_mirror.properties(path, connectionInterface);
        const QString accessPoint = connection != nullptr ? accessPointOf(*connection) : QString();
        if (!accessPoint.isEmpty()) {
            return accessPoint;
        }
    }
    return QString();
}

void NetworkManagerWiFi::join(const QString &accessPoint) {
    if (accessPoint == m_accessPoint &&
        (accessPoint.isEmpty() || m_mirror.contains(accessPoint, accessPointInterface))) {
        return;
    }
    m_accessPointWatch.reset();
    m_mirror.drop(std::exchange(m_accessPoint, accessPoint));
    if (!accessPoint.isEmpty()) {
        m_mirror.read(accessPoint, accessPointInterface);
    }
}

/// An access point that has a name keeps it: a renamed network is another object. Only one with a
/// hidden name is followed, since the signals of an access point tell of its strength every few
/// seconds and would wake the process for nothing.
void NetworkManagerWiFi::followHiddenName() {
    if (m_ssid || m_accessPoint.isEmpty()) {
        m_accessPointWatch.reset();
    } else if (!m_accessPointWatch) {
        m_accessPointWatch = m_mirror.service().watch(
            {{},
             m_accessPoint,
             u"org.freedesktop.DBus.Properties"_s,
             u"PropertiesChanged"_s,
             {accessPointInterface},
             u"sa{sv}as"_s},
            [this](const QDBusMessage &) { m_mirror.read(m_accessPoint, accessPointInterface); });
    }
}

} // namespace zeph
