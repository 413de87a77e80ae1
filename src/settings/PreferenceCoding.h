// SPDX-License-Identifier: MIT
#pragma once

#include "settings/CountdownEvent.h"
#include "settings/PreferenceChoices.h"
#include "settings/WidgetKind.h"

#include <QByteArray>
#include <QStringList>

#include <map>
#include <optional>
#include <vector>

/// The stored forms of the preferences. Every read answers absent for a form it does not know;
/// JSON is all or nothing: one wrong element loses the whole value.
namespace zeph::coding {

QString raw(WidgetLayoutMode mode);
QString raw(BackgroundMode mode);
QString raw(UnitSystem system);
QString raw(CountdownRecurrence recurrence);
std::optional<WidgetLayoutMode> layoutMode(const QString &raw);
std::optional<BackgroundMode> backgroundMode(const QString &raw);
std::optional<UnitSystem> unitSystem(const QString &raw);

/// "all", or the identity of the screen.
QString text(const DisplaySelection &selection);
DisplaySelection displaySelection(const QString &text);

/// "all", or the numbers in ascending order joined by ",". Pieces that are no integer are skipped
/// on reading; without any integer the selection is all desktops, so an empty set does not last.
QString text(const DesktopSelection &selection);
DesktopSelection desktopSelection(const QString &text);

QByteArray json(const std::map<QString, WidgetPlacement> &placements);
QByteArray json(const std::map<QString, WidgetSizeOption> &sizes);
QByteArray json(const QStringList &texts);
std::optional<std::map<QString, WidgetPlacement>> placements(const QByteArray &json);
std::optional<std::map<QString, WidgetSizeOption>> sizes(const QByteArray &json);
std::optional<QStringList> texts(const QByteArray &json);

/// Dates are seconds since 2001-01-01 00:00:00 UTC. Absent when a date is not finite, which JSON
/// can't hold.
std::optional<QByteArray> json(const std::vector<CountdownEvent> &countdowns);

/// An event without an id gets a fresh one; without a recurrence it has none.
std::optional<std::vector<CountdownEvent>> countdowns(const QByteArray &json);

} // namespace zeph::coding
