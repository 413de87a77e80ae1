// SPDX-License-Identifier: MIT
#pragma once

#include "core/records/ActivitySummary.h"
#include "core/records/AppUsage.h"
#include "core/records/InputRhythm.h"

#include <memory>
#include <utility>
#include <vector>

namespace zeph {

class Calendar;
class Clock;
class Database;

/// Daily usage on disk: seconds an application a day, and one row of counters a day. Blocking;
/// called on the main thread. Without a database every load is empty and every save does nothing.
class UsageStore {
public:
    /// Opens "zeph.sqlite" in `folder`, which is made when missing (0700; the file is 0600), and
    /// creates the tables. A file that will not open leaves the store without a database.
    UsageStore(const QString &folder, const Clock &clock, const Calendar &calendar);
    ~UsageStore();
    UsageStore(const UsageStore &) = delete;
    UsageStore &operator=(const UsageStore &) = delete;

    /// The local day of `date` as "yyyy-MM-dd"; keys sort as text.
    QString dayKey(Date date) const;

    /// Most seconds first; `iconPath` is not stored.
    std::vector<AppUsage> loadAppUsage(const QString &day) const;
    void saveAppUsage(const std::vector<AppUsage> &usage, const QString &day);

    std::optional<std::pair<ActivitySummary, InputRhythm>> loadDailyStats(const QString &day) const;

    /// Keeps the first `firstActive` ever stored for the day and replaces everything else.
    void saveDailyStats(const ActivitySummary &summary, const InputRhythm &rhythm,
                        const QString &day);

    /// Mean of the daily keystrokes per active minute over the newest `days` rows with more than
    /// 300 active seconds, days without keystrokes left out; 0 without any.
    double averageKPM(bool excludingToday, int days) const;

    /// Mean active seconds of the newest `days` earlier days that have any; 0 without any.
    double averageActiveSeconds(int days) const;

private:
    void migrate();

    const Clock &m_clock;
    const Calendar &m_calendar;
    std::unique_ptr<Database> m_db; // null when the file could not be opened
};

} // namespace zeph
