// SPDX-License-Identifier: MIT
#pragma once

#include "base/Date.h"

#include <QString>

#include <optional>

namespace zeph {

struct ActivitySummary;
struct AppUsage;
struct BatteryInfo;
struct CalendarSummary;
struct DesktopSummary;
struct DiskInfo;
struct FramingContext;
struct SystemLoad;
struct WeatherInfo;

/// The voice of the wallpaper: every number becomes a short calm sentence or a compact figure
/// here. Pure functions in fixed English. A number that can't be made an integer, such as NaN, is
/// an error of the caller and ends the process.
namespace StatFraming {

/// "1.2M" for 1234567. Absent below 100000 and in the gaps before each unit, where the caller
/// writes the number out.
std::optional<QString> compact(double value);

/// An amount in hundredths of `currency`, a three-letter code in any case: "$12.5", "$1.2M".
QString money(qint64 cents, const QString &currency, const FramingContext &context);

/// "99,999" or, where it is compact, "100K".
QString count(qint64 n, const FramingContext &context);

/// "42s", "7m", "2h", "2h 5m", cut and not rounded.
QString duration(double seconds);
QString shortDuration(qint64 minutes);

/// "3:07 pm"; the choice of a 24-hour clock does not reach it.
QString clockTime(Date date, const FramingContext &context);

/// The pointer's travel: "812m", "1.4km", or feet and miles.
QString distance(double meters, const FramingContext &context);

/// A large distance, "1,234 km" or in miles, always in the user's own grouping.
QString kilometers(double kilometers, const FramingContext &context);

QString topAppHeadline(const std::optional<AppUsage> &topApp);

/// `average` is the usual rate, 0 without history. Both are keystrokes a minute.
QString typing(double kpm, double average);
QString switches(qint64 count);

/// `average` is the usual active time in seconds, 0 without history.
QString active(const ActivitySummary &summary, double average);
QString battery(const BatteryInfo &battery);
QString cpu(const SystemLoad &load);
QString memory(const SystemLoad &load);
QString disk(const DiskInfo &disk);
QString uptime(double seconds);
QString weather(const std::optional<WeatherInfo> &weather, const FramingContext &context);
QString nextMeeting(const CalendarSummary &calendar, const FramingContext &context);
QString desktopHeadline(const DesktopSummary &desktop);
QString greeting(Date date, const FramingContext &context);

} // namespace StatFraming

} // namespace zeph
