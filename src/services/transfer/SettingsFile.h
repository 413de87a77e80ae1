// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/CustomAPIConfig.h"
#include "services/accounts/IntegrationConnection.h"
#include "settings/CountdownEvent.h"
#include "settings/PreferenceChoices.h"
#include "settings/WidgetKind.h"

#include <QByteArray>
#include <QStringList>

#include <map>
#include <optional>
#include <variant>
#include <vector>

namespace zeph {

class IntegrationsStore;
class PreferencesStore;

/// The choices of a settings file; what is absent is left as it is.
struct TransferredPreferences {
    std::optional<std::map<QString, WidgetPlacement>> placements = {};
    std::optional<std::map<QString, WidgetSizeOption>> sizes = {};
    std::optional<WidgetLayoutMode> layoutMode = {};
    std::optional<QStringList> customOrder = {};
    std::optional<BackgroundMode> backgroundMode = {};
    std::optional<QString> backgroundHex = {};
    std::optional<double> transparentDim = {};
    std::optional<bool> useSystemNumberFormat = {};
    std::optional<UnitSystem> unitSystem = {};
    std::optional<bool> use24HourClock = {};
    std::optional<DisplaySelection> displaySelection = {};
    std::optional<DesktopSelection> desktopSelection = {};
    std::optional<std::vector<CountdownEvent>> countdowns = {};

    bool operator==(const TransferredPreferences &) const = default;
};

/// All that a settings file holds, understood.
struct TransferredSettings {
    TransferredPreferences preferences = {};
    std::vector<IntegrationConnection> accounts = {}; ///< without their keys
    std::vector<CustomAPIConfig> endpoints = {};      ///< their headers without values
    std::optional<bool> quoteEnabled = {};

    bool operator==(const TransferredSettings &) const = default;
};

/// All settings in one file that can go to another computer: JSON without any key, consent or
/// usage. docs/SETTINGS.md tells its form.
namespace SettingsFile {

/// The file of what is set now.
QByteArray exported(const PreferencesStore &preferences, const IntegrationsStore &store);

/// What a file holds, or in a sentence why it can't be taken. Changes nothing.
std::variant<TransferredSettings, QString> read(const QByteArray &bytes);

/// What was left out in the end, for whoever imported it.
struct Imported {
    std::size_t accountsWithoutKey = 0; ///< they are there and wait for their key
    bool areEndpointsLeftOut = false;   ///< the keyring does not tell the list that is there

    bool operator==(const Imported &) const = default;
};

/// Takes all of it over. Accounts and endpoints that are there already are replaced and keep their
/// keys; none is removed.
Imported take(const TransferredSettings &settings, PreferencesStore &preferences,
              IntegrationsStore &store);

/// One sentence that tells what came of an import.
QString summary(const Imported &imported);

} // namespace SettingsFile

} // namespace zeph
