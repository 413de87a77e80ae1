// SPDX-License-Identifier: MIT
#include "services/transfer/SettingsFile.h"

#include "base/TakenOut.h"
#include "services/accounts/AccountCoding.h"
#include "services/accounts/IntegrationsStore.h"
#include "settings/PreferenceCoding.h"
#include "settings/PreferencesStore.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace zeph::SettingsFile {

namespace {

QJsonValue value(const QByteArray &json) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    return document.isArray() ? QJsonValue(document.array()) : QJsonValue(document.object());
}

QJsonObject exportedPreferences(const PreferencesStore &preferences) {
    QJsonObject all{
        {u"placements"_s, value(coding::json(preferences.placements()))},
        {u"sizes"_s, value(coding::json(preferences.sizes()))},
        {u"layoutMode"_s, coding::raw(preferences.layoutMode())},
        {u"customOrder"_s, value(coding::json(preferences.customOrder()))},
        {u"backgroundMode"_s, coding::raw(preferences.backgroundMode())},
        {u"transparentDim"_s, preferences.transparentDim()},
        {u"systemNumberFormat"_s, preferences.useSystemNumberFormat()},
        {u"units"_s, coding::raw(preferences.unitSystem())},
        {u"clock24h"_s, preferences.use24HourClock()},
        {u"displays"_s, coding::text(preferences.displaySelection())},
        {u"desktops"_s, coding::text(preferences.desktopSelection())},
    };
    if (const auto &hex = preferences.backgroundHex()) {
        all.insert(u"backgroundHex"_s, *hex);
    }
    if (const auto countdowns = coding::json(preferences.countdowns())) {
        all.insert(u"countdowns"_s, value(*countdowns));
    }
    return all;
}

QJsonValue exportedEndpoints(const std::vector<CustomAPIConfig> &endpoints) {
    std::vector<CustomAPIConfig> open;
    open.reserve(endpoints.size());
    std::transform(endpoints.begin(), endpoints.end(), std::back_inserter(open), withoutSecrets);
    return value(coding::json(open));
}

/// `taken` with what is known here of its secrets, when it is the same endpoint.
CustomAPIConfig withOwnSecrets(CustomAPIConfig taken, const CustomAPIConfig &own) {
    taken.urlString = own.urlString;
    for (HTTPHeaderEntry &header : taken.headers) {
        const auto same = std::find_if(
            own.headers.begin(), own.headers.end(),
            [&header](const HTTPHeaderEntry &entry) { return entry.name == header.name; });
        if (same != own.headers.end()) {
            header.value = same->value;
        }
    }
    return taken;
}

/// Never gives what is kept for one address to another.
CustomAPIConfig adopted(const CustomAPIConfig &endpoint, const IntegrationsStore &store) {
    const auto own = placeOf(store.customAPIs(), endpoint.id);
    if (own == store.customAPIs().end()) {
        return endpoint;
    }
    if (withoutSecrets(*own).urlString == endpoint.urlString) {
        return withOwnSecrets(endpoint, *own);
    }
    CustomAPIConfig other = endpoint;
    other.id = QUuid::createUuid();
    return other;
}

/// Hands what is there to a setter.
template <typename Value, typename Set>
void put(const std::optional<Value> &value, Set set) {
    if (value) {
        set(*value);
    }
}

void takePreferences(const TransferredPreferences &taken, PreferencesStore &own) {
    put(taken.placements, [&own](const auto &all) { own.setPlacements(all); });
    put(taken.sizes, [&own](const auto &all) { own.setSizes(all); });
    put(taken.layoutMode, [&own](auto mode) { own.setLayoutMode(mode); });
    put(taken.customOrder, [&own](const QStringList &order) {
        order.isEmpty() ? own.resetCustomOrder() : own.setCustomOrder(order);
    });
    put(taken.backgroundMode, [&own](auto mode) { own.setBackgroundMode(mode); });
    put(taken.backgroundHex, [&own](const QString &hex) { own.setBackgroundHex(hex); });
    put(taken.transparentDim, [&own](double dim) { own.setTransparentDim(dim); });
    put(taken.useSystemNumberFormat, [&own](bool use) { own.setUseSystemNumberFormat(use); });
    put(taken.unitSystem, [&own](auto system) { own.setUnitSystem(system); });
    put(taken.use24HourClock, [&own](bool use) { own.setUse24HourClock(use); });
    put(taken.displaySelection, [&own](const auto &chosen) { own.setDisplaySelection(chosen); });
    put(taken.desktopSelection, [&own](const auto &chosen) { own.setDesktopSelection(chosen); });
    put(taken.countdowns, [&own](const auto &events) { own.setCountdowns(events); });
}

} // namespace

QByteArray exported(const PreferencesStore &preferences, const IntegrationsStore &store) {
    const QJsonObject all{
        {u"format"_s, formatName()},
        {u"version"_s, version},
        {u"preferences"_s, exportedPreferences(preferences)},
        {u"accounts"_s, value(coding::json(store.connections()))},
        {u"endpoints"_s, exportedEndpoints(store.customAPIs())},
        {u"quoteEnabled"_s, store.quoteEnabled()},
    };
    return QJsonDocument(all).toJson(QJsonDocument::Indented);
}

Imported take(const TransferredSettings &settings, PreferencesStore &preferences,
              IntegrationsStore &store) {
    takePreferences(settings.preferences, preferences);
    put(settings.quoteEnabled, [&store](bool enabled) { store.setQuoteEnabled(enabled); });
    Imported imported;
    for (const IntegrationConnection &account : settings.accounts) {
        const IntegrationConnection taken = store.takeOver(account);
        imported.accountsWithoutKey += store.hasSecret(taken.id) ? 0 : 1;
    }
    imported.areEndpointsLeftOut = !settings.endpoints.empty() && !store.areCustomAPIsLoaded();
    if (settings.endpoints.empty() || imported.areEndpointsLeftOut) {
        return imported;
    }
    std::vector<CustomAPIConfig> endpoints;
    for (const CustomAPIConfig &endpoint : settings.endpoints) {
        const CustomAPIConfig &taken = endpoints.emplace_back(adopted(endpoint, store));
        imported.headersWithoutValue += static_cast<std::size_t>(
            std::count_if(taken.headers.begin(), taken.headers.end(),
                          [](const HTTPHeaderEntry &header) { return header.value.isEmpty(); }));
    }
    store.upsertCustomAPIs(endpoints);
    return imported;
}

QString summary(const Imported &imported) {
    QStringList sentences{u"The settings were imported."_s};
    if (imported.accountsWithoutKey == 1) {
        sentences << u"One account waits for its key."_s;
    } else if (imported.accountsWithoutKey > 1) {
        sentences << u"%1 accounts wait for their keys."_s.arg(imported.accountsWithoutKey);
    }
    if (imported.headersWithoutValue > 0) {
        sentences << u"The headers of custom endpoints wait for their values."_s;
    }
    if (imported.areEndpointsLeftOut) {
        sentences << u"Custom endpoints were left out, since the keyring is locked."_s;
    }
    return sentences.join(u' ');
}

} // namespace zeph::SettingsFile
