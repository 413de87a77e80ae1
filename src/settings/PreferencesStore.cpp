// SPDX-License-Identifier: MIT
#include "settings/PreferencesStore.h"

#include "base/Log.h"
#include "base/NotificationCenter.h"
#include "ports/Formatters.h"
#include "ports/UserDefaults.h"
#include "settings/PreferenceCoding.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const auto placementsKey = u"zeph.widgets.placements"_s;
const auto sizesKey = u"zeph.widgets.sizes"_s;
const auto layoutModeKey = u"zeph.widgets.layoutMode"_s;
const auto customOrderKey = u"zeph.widgets.customOrder"_s;
const auto petEnabledKey = u"zeph.pet.enabled"_s;
const auto petKindKey = u"zeph.pet.kind"_s;
const auto systemNumbersKey = u"zeph.numbers.system"_s;
const auto unitsKey = u"zeph.units"_s;
const auto clock24hKey = u"zeph.clock.24h"_s;
const auto backgroundHexKey = u"zeph.background.hex"_s;
const auto backgroundModeKey = u"zeph.background.mode"_s;
const auto transparentDimKey = u"zeph.background.transparentDim"_s;
const auto displaySelectionKey = u"zeph.display.selection"_s;
const auto desktopSelectionKey = u"zeph.desktop.selection"_s;
const auto countdownsKey = u"zeph.countdowns"_s;

/// What `decode` makes of the stored value, when that has the type `Stored` and a known form.
template <typename Stored, typename Value>
std::optional<Value> decoded(const UserDefaults &defaults, const QString &key,
                             std::optional<Value> (*decode)(const Stored &)) {
    const auto stored = defaults.get<Stored>(key);
    auto value = stored ? decode(*stored) : std::nullopt;
    if (!value && defaults.value(key)) {
        qCInfo(logSettings, "%s can't be understood, so its default counts", qPrintable(key));
    }
    return value;
}

/// The kind's own choice, else the one made when it was one widget with its siblings.
template <typename Choice>
std::optional<Choice> chosen(const std::map<QString, Choice> &choices, WidgetKind kind) {
    auto found = choices.find(rawValue(kind));
    if (found == choices.end()) {
        if (const auto legacy = legacyKey(kind)) {
            found = choices.find(*legacy);
        }
    }
    return found == choices.end() ? std::nullopt : std::optional(found->second);
}

} // namespace

PreferencesStore::PreferencesStore(UserDefaults &defaults, NotificationCenter &notifications,
                                   const Formatters &formatters)
    : m_defaults(defaults), m_notifications(notifications) {
    m_placements = decoded(defaults, placementsKey, coding::placements).value_or(m_placements);
    m_sizes = decoded(defaults, sizesKey, coding::sizes).value_or(m_sizes);
    m_layoutMode = decoded(defaults, layoutModeKey, coding::layoutMode).value_or(m_layoutMode);
    m_customOrder = decoded(defaults, customOrderKey, coding::texts).value_or(m_customOrder);
    m_petEnabled = defaults.get<bool>(petEnabledKey).value_or(true);
    m_petKind = defaults.get<QString>(petKindKey).value_or(u"cat"_s);
    m_useSystemNumberFormat = defaults.boolean(systemNumbersKey);
    const auto localeUnits =
        formatters.usesUSMeasurement() ? UnitSystem::imperial : UnitSystem::metric;
    m_unitSystem = decoded(defaults, unitsKey, coding::unitSystem).value_or(localeUnits);
    m_use24HourClock = defaults.boolean(clock24hKey);
    m_backgroundHex = defaults.get<QString>(backgroundHexKey).value_or(u"#0D0F1F"_s);
    m_backgroundMode =
        decoded(defaults, backgroundModeKey, coding::backgroundMode).value_or(m_backgroundMode);
    m_transparentDim = defaults.get<double>(transparentDimKey).value_or(m_transparentDim);
    m_displaySelection =
        coding::displaySelection(defaults.get<QString>(displaySelectionKey).value_or(u"all"_s));
    m_desktopSelection =
        coding::desktopSelection(defaults.get<QString>(desktopSelectionKey).value_or(u"all"_s));
    m_countdowns = decoded(defaults, countdownsKey, coding::countdowns).value_or(m_countdowns);
}

WidgetPlacement PreferencesStore::placement(WidgetKind kind) const {
    return chosen(m_placements, kind).value_or(defaultPlacement(kind));
}

void PreferencesStore::set(WidgetPlacement placement, WidgetKind kind) {
    auto placements = m_placements;
    placements[rawValue(kind)] = placement;
    setPlacements(placements);
}

bool PreferencesStore::hasChosenPlacement(WidgetKind kind) const {
    return m_placements.count(rawValue(kind)) > 0;
}

bool PreferencesStore::hasChosenSize(WidgetKind kind) const {
    return m_sizes.count(rawValue(kind)) > 0;
}

WidgetSizeOption PreferencesStore::size(WidgetKind kind) const {
    return chosen(m_sizes, kind).value_or(defaultSize(kind));
}

void PreferencesStore::setSize(WidgetSizeOption size, WidgetKind kind) {
    auto sizes = m_sizes;
    sizes[rawValue(kind)] = size;
    setSizes(sizes);
}

void PreferencesStore::setPlacements(const std::map<QString, WidgetPlacement> &placements) {
    change(m_placements, placements, placementsKey, coding::json(placements));
}

void PreferencesStore::setSizes(const std::map<QString, WidgetSizeOption> &sizes) {
    change(m_sizes, sizes, sizesKey, coding::json(sizes));
}

void PreferencesStore::setLayoutMode(WidgetLayoutMode mode) {
    change(m_layoutMode, mode, layoutModeKey, coding::raw(mode));
}

void PreferencesStore::setCustomOrder(const QStringList &order) {
    change(m_customOrder, order, customOrderKey, coding::json(order));
}

void PreferencesStore::resetCustomOrder() {
    change(m_customOrder, QStringList(), customOrderKey, std::nullopt);
}

void PreferencesStore::setBackgroundMode(BackgroundMode mode) {
    change(m_backgroundMode, mode, backgroundModeKey, coding::raw(mode));
}

void PreferencesStore::setBackgroundHex(const std::optional<QString> &hex) {
    change(m_backgroundHex, hex, backgroundHexKey, hex);
}

void PreferencesStore::setTransparentDim(double dim) {
    change(m_transparentDim, dim, transparentDimKey, dim);
}

void PreferencesStore::setUseSystemNumberFormat(bool use) {
    objectWillChange.send();
    m_useSystemNumberFormat = use;
    m_defaults.set(systemNumbersKey, use);
    m_notifications.post(notifications::zephPreferencesChanged);
}

void PreferencesStore::setUnitSystem(UnitSystem system) {
    change(m_unitSystem, system, unitsKey, coding::raw(system));
}

void PreferencesStore::setUse24HourClock(bool use) {
    change(m_use24HourClock, use, clock24hKey, use);
}

void PreferencesStore::setDisplaySelection(const DisplaySelection &selection) {
    change(m_displaySelection, selection, displaySelectionKey, coding::text(selection),
           notifications::zephDisplaySelectionChanged);
}

void PreferencesStore::setDesktopSelection(const DesktopSelection &selection) {
    change(m_desktopSelection, selection, desktopSelectionKey, coding::text(selection),
           notifications::zephDesktopSelectionChanged);
}

void PreferencesStore::setCountdowns(std::vector<CountdownEvent> countdowns) {
    objectWillChange.send();
    m_countdowns = std::move(countdowns);
    m_countdownDates.forget();
    // Without a JSON form the stored list stays as it was and the one in memory stands.
    if (const auto json = coding::json(m_countdowns)) {
        m_defaults.set(countdownsKey, *json);
    }
    m_notifications.post(notifications::zephPreferencesChanged);
}

template <typename Value, typename Stored>
void PreferencesStore::change(Value &property, Value value, const QString &key,
                              const Stored &stored, const QString &notification) {
    objectWillChange.send();
    property = std::move(value);
    if (const std::optional<DefaultsValue> kept = stored) {
        m_defaults.set(key, *kept);
    } else {
        m_defaults.remove(key);
    }
    m_notifications.post(notification);
}

} // namespace zeph
