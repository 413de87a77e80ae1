// SPDX-License-Identifier: MIT
#include "adapters/session/kwin/KWinVirtualDesktops.h"

#include "adapters/bus/DBusCalls.h"

#include <QDBusArgument>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString kDesktopsName = u"org.kde.KWin"_s;
const QString kDesktopsPath = u"/VirtualDesktopManager"_s;
const QString kDesktopsInterface = u"org.kde.KWin.VirtualDesktopManager"_s;

// No display's: those are made of what displays tell of themselves.
const QString kSharedIdentifier = u"kwin"_s;

// KWin has at most 25; a longer list is not believed.
constexpr std::size_t kMostVirtualDesktops = 256;

struct ToldDesktop {
    QString identifier;
    QString name;
};

/// Those of the property, in order; none when it has another form.
std::vector<ToldDesktop> desktopsIn(const QVariant &property) {
    std::vector<ToldDesktop> desktops;
    if (property.metaType() != QMetaType::fromType<QDBusArgument>()) {
        return desktops;
    }
    const auto list = property.value<QDBusArgument>();
    const bool hasUnsignedPlaces = list.currentSignature() == u"a(uss)"_s;
    if (!hasUnsignedPlaces && list.currentSignature() != u"a(iss)"_s) {
        return desktops;
    }
    list.beginArray();
    while (!list.atEnd()) {
        ToldDesktop desktop;
        int place = 0;
        uint unsignedPlace = 0;
        list.beginStructure();
        hasUnsignedPlaces ? list >> unsignedPlace : list >> place;
        list >> desktop.identifier >> desktop.name;
        list.endStructure();
        if (desktops.size() < kMostVirtualDesktops) {
            desktops.push_back(std::move(desktop));
        }
    }
    list.endArray();
    return desktops;
}

} // namespace

KWinVirtualDesktops::KWinVirtualDesktops(const QDBusConnection &bus)
    : m_service(bus, kDesktopsName, [this] { ownerChanged(); }) {
    const auto follow = [this](const QString &signal, const QString &signature) {
        m_service.follow({{}, kDesktopsPath, kDesktopsInterface, signal, {}, signature},
                         [this](const QDBusMessage & /*signal*/) { read(); });
    };
    follow(u"currentChanged"_s, u"s"_s);
    follow(u"desktopRemoved"_s, u"s"_s);
    for (const QString &described : {u"s(iss)"_s, u"s(uss)"_s}) {
        follow(u"desktopCreated"_s, described);
        follow(u"desktopDataChanged"_s, described);
    }
}

std::vector<ManagedDisplay> KWinVirtualDesktops::managedDisplays() const {
    return m_shared.spaces.empty() ? std::vector<ManagedDisplay>() : std::vector{m_shared};
}

Subscription KWinVirtualDesktops::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void KWinVirtualDesktops::ownerChanged() {
    m_isReading = false; // what was asked is not answered any more
    m_readsAgain = false;
    if (m_service.isThere()) {
        read();
    } else {
        set({});
    }
}

void KWinVirtualDesktops::read() {
    // One that is added changes the others' places too: they are read together.
    if (std::exchange(m_isReading, true)) {
        m_readsAgain = true;
        return;
    }
    m_service.ask(kDesktopsPath, u"org.freedesktop.DBus.Properties"_s, u"GetAll"_s,
                  {kDesktopsInterface}, busDefaultTimeout,
                  [this](const QDBusMessage &answer) { take(answer); });
}

void KWinVirtualDesktops::take(const QDBusMessage &answer) {
    m_isReading = false;
    if (std::exchange(m_readsAgain, false)) {
        read();
    }
    const auto properties = propertiesIn(answer);
    if (!properties) {
        return;
    }
    const QString current = (*properties)[u"current"_s].toString();
    ManagedDisplay shared;
    shared.identifier = kSharedIdentifier;
    for (const ToldDesktop &desktop : desktopsIn((*properties)[u"desktops"_s])) {
        shared.spaces.push_back({.id = numberOf(desktop.identifier), .name = desktop.name});
        if (desktop.identifier == current) {
            shared.currentSpace = shared.spaces.back().id;
        }
    }
    set(std::move(shared));
}

void KWinVirtualDesktops::set(ManagedDisplay shared) {
    if (m_shared != shared) {
        m_shared = std::move(shared);
        m_changes.send();
    }
}

quint64 KWinVirtualDesktops::numberOf(const QString &identifier) {
    return m_numbers.try_emplace(identifier, m_numbers.size() + 1).first->second;
}

} // namespace zeph
