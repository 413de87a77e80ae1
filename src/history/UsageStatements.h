// SPDX-License-Identifier: MIT
#pragma once

/// The SQL of `UsageStore`. The text of the two tables stays as it is: existing files hold it.
namespace zeph::statements {

inline constexpr char16_t createAppUsage[] = uR"(CREATE TABLE IF NOT EXISTS app_usage (
    day TEXT NOT NULL,
    bundle_id TEXT NOT NULL,
    name TEXT NOT NULL,
    seconds REAL NOT NULL DEFAULT 0,
    PRIMARY KEY (day, bundle_id)
);)";

inline constexpr char16_t createDailyStats[] = uR"(CREATE TABLE IF NOT EXISTS daily_stats (
    day TEXT PRIMARY KEY,
    keystrokes INTEGER NOT NULL DEFAULT 0,
    mouse_clicks INTEGER NOT NULL DEFAULT 0,
    mouse_distance REAL NOT NULL DEFAULT 0,
    active_seconds REAL NOT NULL DEFAULT 0,
    machine_on_seconds REAL NOT NULL DEFAULT 0,
    app_switches INTEGER NOT NULL DEFAULT 0,
    longest_focus_seconds REAL NOT NULL DEFAULT 0,
    longest_focus_app TEXT,
    first_active REAL,
    last_active REAL
);)";

inline constexpr char16_t upsertAppUsage[] =
    uR"(INSERT INTO app_usage (day, bundle_id, name, seconds) VALUES (?, ?, ?, ?)
ON CONFLICT(day, bundle_id) DO UPDATE SET seconds = excluded.seconds, name = excluded.name;)";

inline constexpr char16_t selectAppUsage[] =
    u"SELECT bundle_id, name, seconds FROM app_usage WHERE day = ? ORDER BY seconds DESC";

inline constexpr char16_t upsertDailyStats[] = uR"(INSERT INTO daily_stats
    (day, keystrokes, mouse_clicks, mouse_distance, active_seconds, machine_on_seconds,
     app_switches, longest_focus_seconds, longest_focus_app, first_active, last_active)
VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)
ON CONFLICT(day) DO UPDATE SET
    keystrokes = excluded.keystrokes,
    mouse_clicks = excluded.mouse_clicks,
    mouse_distance = excluded.mouse_distance,
    active_seconds = excluded.active_seconds,
    machine_on_seconds = excluded.machine_on_seconds,
    app_switches = excluded.app_switches,
    longest_focus_seconds = excluded.longest_focus_seconds,
    longest_focus_app = excluded.longest_focus_app,
    first_active = COALESCE(daily_stats.first_active, excluded.first_active),
    last_active = excluded.last_active;)";

inline constexpr char16_t selectDailyStats[] =
    uR"(SELECT keystrokes, mouse_clicks, mouse_distance, active_seconds, machine_on_seconds,
       app_switches, longest_focus_seconds, longest_focus_app, first_active, last_active
FROM daily_stats WHERE day = ?)";

inline constexpr char16_t selectActiveSeconds[] =
    uR"(SELECT active_seconds FROM daily_stats WHERE day != ? AND active_seconds > 0
ORDER BY day DESC LIMIT ?)";

/// The daily rates: these three joined, the middle one only to leave today out.
inline constexpr char16_t selectRates[] =
    u"SELECT keystrokes, active_seconds FROM daily_stats\nWHERE active_seconds > 300 ";
inline constexpr char16_t andOtherDays[] = u"AND day != ?";
inline constexpr char16_t newestFirst[] = u"\nORDER BY day DESC LIMIT ?";

} // namespace zeph::statements
