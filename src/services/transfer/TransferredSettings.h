// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/CustomAPIConfig.h"
#include "services/accounts/IntegrationConnection.h"
#include "settings/CountdownEvent.h"
#include "settings/PreferenceChoices.h"
#include "settings/WidgetKind.h"

#include <QStringList>

#include <map>
#include <optional>
#include <vector>

namespace zeph {

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
    std::vector<CustomAPIConfig> endpoints = {};      ///< without what may be secret in them
    std::optional<bool> quoteEnabled = {};

    bool operator==(const TransferredSettings &) const = default;
};

/// An endpoint as a file may hold it: its headers without values, its address without a user and
/// with the names of its query alone. An address that can't be understood is left out.
CustomAPIConfig withoutSecrets(const CustomAPIConfig &endpoint);

} // namespace zeph
