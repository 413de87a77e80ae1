// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/NotificationCenter.h"
#include "settings/CountdownDates.h"
#include "settings/PreferenceChoices.h"
#include "settings/WidgetKind.h"

#include <QStringList>

#include <atomic>
#include <map>

namespace zeph {

class Formatters;
class UserDefaults;

/// Every user choice that shapes the wallpaper, written through to the defaults on each change.
/// A damaged stored value reads as its default and stays stored until the next write. Main thread
/// only, but for `useSystemNumberFormat`, which words the answers of services on their own threads;
/// a change made by another process is seen at the next launch.
class PreferencesStore {
public:
    /// Reads all keys. `formatters` tells the default unit system.
    PreferencesStore(UserDefaults &defaults, NotificationCenter &notifications,
                     const Formatters &formatters);

    /// Fires before every change of any property.
    ChangePublisher objectWillChange;

    WidgetPlacement placement(WidgetKind kind) const;
    bool isOn(WidgetKind kind) const { return placement(kind) != WidgetPlacement::off; }
    void set(WidgetPlacement placement, WidgetKind kind);

    /// Whether the user chose for this very widget; a choice for a widget that it was once one of
    /// doesn't count.
    bool hasChosenPlacement(WidgetKind kind) const;
    bool hasChosenSize(WidgetKind kind) const;
    WidgetSizeOption size(WidgetKind kind) const;
    void setSize(WidgetSizeOption size, WidgetKind kind);

    /// What was chosen, by raw values; a widget without an entry has its default.
    const std::map<QString, WidgetPlacement> &placements() const { return m_placements; }
    void setPlacements(const std::map<QString, WidgetPlacement> &placements);
    const std::map<QString, WidgetSizeOption> &sizes() const { return m_sizes; }
    void setSizes(const std::map<QString, WidgetSizeOption> &sizes);

    WidgetLayoutMode layoutMode() const { return m_layoutMode; }
    void setLayoutMode(WidgetLayoutMode mode);
    const QStringList &customOrder() const { return m_customOrder; }
    void setCustomOrder(const QStringList &order);
    void resetCustomOrder();

    BackgroundMode backgroundMode() const { return m_backgroundMode; }
    void setBackgroundMode(BackgroundMode mode);
    const std::optional<QString> &backgroundHex() const { return m_backgroundHex; }
    void setBackgroundHex(const std::optional<QString> &hex);
    double transparentDim() const { return m_transparentDim; }
    void setTransparentDim(double dim);

    bool useSystemNumberFormat() const { return m_useSystemNumberFormat; }
    void setUseSystemNumberFormat(bool use);
    UnitSystem unitSystem() const { return m_unitSystem; }
    void setUnitSystem(UnitSystem system);
    bool use24HourClock() const { return m_use24HourClock; }
    void setUse24HourClock(bool use);

    const DisplaySelection &displaySelection() const { return m_displaySelection; }
    void setDisplaySelection(const DisplaySelection &selection);
    const DesktopSelection &desktopSelection() const { return m_desktopSelection; }
    void setDesktopSelection(const DesktopSelection &selection);

    const std::vector<CountdownEvent> &countdowns() const { return m_countdowns; }
    void setCountdowns(std::vector<CountdownEvent> countdowns);

    /// Where each of the countdowns stands on the day of `now`, in their order; valid until the
    /// next call.
    const std::vector<CountdownOccurrence> &countdownDates(Date now,
                                                           const Calendar &calendar) const {
        return m_countdownDates.on(now, m_countdowns, calendar);
    }

    /// Kept so that values of earlier releases stay untouched; nothing reads them.
    bool petEnabled() const { return m_petEnabled; }
    const QString &petKind() const { return m_petKind; }

private:
    /// Assigns `property`, writes `stored` under `key` (removes the key when it is absent) and
    /// posts `notification`.
    template <typename Value, typename Stored>
    void change(Value &property, Value value, const QString &key, const Stored &stored,
                const QString &notification = notifications::zephPreferencesChanged);

    UserDefaults &m_defaults;
    NotificationCenter &m_notifications;
    std::map<QString, WidgetPlacement> m_placements;
    std::map<QString, WidgetSizeOption> m_sizes;
    WidgetLayoutMode m_layoutMode = WidgetLayoutMode::automatic;
    QStringList m_customOrder;
    bool m_petEnabled = true;
    QString m_petKind;
    std::atomic<bool> m_useSystemNumberFormat = false;
    UnitSystem m_unitSystem = UnitSystem::metric;
    bool m_use24HourClock = false;
    std::optional<QString> m_backgroundHex;
    BackgroundMode m_backgroundMode = BackgroundMode::solid;
    double m_transparentDim = 0.35;
    DisplaySelection m_displaySelection;
    DesktopSelection m_desktopSelection;
    std::vector<CountdownEvent> m_countdowns;
    mutable CountdownDates m_countdownDates;
};

} // namespace zeph
