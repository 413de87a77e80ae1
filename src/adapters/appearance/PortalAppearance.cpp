// SPDX-License-Identifier: MIT
#include "adapters/appearance/PortalAppearance.h"

#include "adapters/bus/DBusCalls.h"

#include <QDBusArgument>
#include <QDBusVariant>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString portalName = u"org.freedesktop.portal.Desktop"_s;
const QString portalPath = u"/org/freedesktop/portal/desktop"_s;
const QString settingsInterface = u"org.freedesktop.portal.Settings"_s;

const QString appearanceGroup = u"org.freedesktop.appearance"_s;
const QString interfaceGroup = u"org.gnome.desktop.interface"_s;

using Groups = QMap<QString, QVariantMap>;

/// The whole number in `value`, which some portals wrap twice; absent for anything else.
std::optional<uint> numberIn(const QVariant &value) {
    const QVariant plain = value.metaType() == QMetaType::fromType<QDBusVariant>()
                               ? value.value<QDBusVariant>().variant()
                               : value;
    return plain.typeId() == QMetaType::UInt ? std::optional(plain.toUInt()) : std::nullopt;
}

DesktopAppearance::Scheme schemeIn(const QVariant &value) {
    switch (numberIn(value).value_or(0)) {
    case 1:
        return DesktopAppearance::Scheme::dark;
    case 2:
        return DesktopAppearance::Scheme::light;
    default:
        return DesktopAppearance::Scheme::unknown;
    }
}

} // namespace

PortalAppearance::PortalAppearance(QDBusConnection sessionBus)
    : m_bus(std::move(sessionBus)), m_portal(m_bus, portalName, [this] { ownerChanged(); }) {
    m_portal.follow({{}, portalPath, settingsInterface, u"SettingChanged"_s, {}, u"ssv"_s},
                    [this](const QDBusMessage &signal) { changed(signal); });
}

Subscription PortalAppearance::subscribe(std::function<void()> handler) {
    if (!std::exchange(m_isStarted, true) && m_bus.isConnected() && !m_portal.isThere()) {
        startPortal();
    }
    return m_changes.subscribe(std::move(handler));
}

/// Nobody waits for it; should it come, its owner is noticed.
void PortalAppearance::startPortal() const {
    QDBusMessage call =
        QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                       u"org.freedesktop.DBus"_s, u"StartServiceByName"_s);
    call << portalName << 0U;
    m_bus.send(call);
}

/// All that is of interest in one question, which portals of every version know.
void PortalAppearance::ownerChanged() {
    if (!m_portal.isThere()) {
        set({});
        return;
    }
    m_portal.ask(portalPath, settingsInterface, u"ReadAll"_s,
                 {QStringList{appearanceGroup, interfaceGroup}}, busDefaultTimeout,
                 [this](const QDBusMessage &answer) { answered(answer); });
}

void PortalAppearance::answered(const QDBusMessage &answer) {
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != u"a{sa{sv}}"_s) {
        set({});
        return;
    }
    Told told;
    const auto groups = qdbus_cast<Groups>(answer.arguments().constFirst());
    for (auto group = groups.begin(); group != groups.end(); ++group) {
        for (auto setting = group->begin(); setting != group->end(); ++setting) {
            take(group.key(), setting.key(), setting.value(), told);
        }
    }
    set(told);
}

void PortalAppearance::changed(const QDBusMessage &signal) {
    const QVariantList arguments = signal.arguments();
    Told told = m_told;
    take(arguments.at(0).toString(), arguments.at(1).toString(),
         arguments.at(2).value<QDBusVariant>().variant(), told);
    set(told);
}

void PortalAppearance::take(const QString &group, const QString &key, const QVariant &value,
                            Told &told) {
    if (group == appearanceGroup && key == u"color-scheme"_s) {
        told.scheme = schemeIn(value);
    } else if (group == appearanceGroup && key == u"contrast"_s) {
        told.isHighContrast = numberIn(value) == 1U;
    } else if (group == appearanceGroup && key == u"reduced-motion"_s) {
        told.isMotionReduced = numberIn(value) == 1U;
    } else if (group == interfaceGroup && key == u"enable-animations"_s) {
        told.hasAnimations = value.typeId() != QMetaType::Bool || value.toBool();
    }
}

void PortalAppearance::set(const Told &told) {
    if (std::exchange(m_told, told) != told) {
        m_changes.send();
    }
}

} // namespace zeph
