// SPDX-License-Identifier: MIT
#pragma once

#include "history/OpenHistory.h"
#include "model/ActivitySummary.h"
#include "model/AppUsage.h"
#include "model/InputRhythm.h"

#include <set>
#include <utility>
#include <vector>

namespace zeph {

class Calendar;
class Clock;
class HistoryAhead;

/// What is stored of a day.
enum class UsageTable {
    applications, ///< the seconds of each application
    totals,       ///< the row of counters
};

/// Daily usage on disk: seconds an application a day, and one row of counters a day. Blocking;
/// called on the main thread. Without a database every load is empty and every save does nothing.
///
/// A load that fails answers as if nothing were stored. So that such an answer never overwrites
/// what is there, nothing more is saved to that table for that day until a load works.
class UsageStore {
public:
    /// Opens "zeph.sqlite" in `folder`, which is made when missing (0700; the file is 0600), and
    /// creates the tables. A file that will not open leaves the store without a database; one that
    /// is damaged, whenever that is found, is renamed to "zeph.sqlite.damaged", or a numbered name
    /// beside it, and a new one begun.
    UsageStore(const QString &folder, const Clock &clock, const Calendar &calendar);
    /// The same with what was opened beside the main thread; waits for that.
    UsageStore(HistoryAhead &history, const Clock &clock, const Calendar &calendar);
    ~UsageStore();
    UsageStore(const UsageStore &) = delete;
    UsageStore &operator=(const UsageStore &) = delete;

    /// The local day of `date` as "yyyy-MM-dd"; keys sort as text.
    QString dayKey(Date date) const;

    /// Most seconds first; `iconPath` is not stored.
    std::vector<AppUsage> loadAppUsage(const QString &day);

    /// False when not all of it could be stored.
    bool saveAppUsage(const std::vector<AppUsage> &usage, const QString &day);

    std::optional<std::pair<ActivitySummary, InputRhythm>> loadDailyStats(const QString &day);

    /// Keeps the first `firstActive` ever stored for the day and replaces everything else. False
    /// when it could not be stored.
    bool saveDailyStats(const ActivitySummary &summary, const InputRhythm &rhythm,
                        const QString &day);

    /// False when the last load of this failed, so that what is stored is not known.
    bool isKnown(UsageTable table, const QString &day) const;

    /// Mean of the daily keystrokes per active minute over the newest `days` rows with more than
    /// 300 active seconds, days without keystrokes left out; 0 without any.
    double averageKPM(bool excludingToday, int days) const;

    /// Mean active seconds of the newest `days` earlier days that have any; 0 without any.
    double averageActiveSeconds(int days) const;

private:
    UsageStore(QString folder, OpenHistory opened, const Clock &clock, const Calendar &calendar);
    void mend();
    void beginAnew();
    bool maySave(UsageTable table, const QString &day);

    /// The rows of `table` for `day`; empty, and the day not known, when they can't be read.
    template <typename Map>
    auto load(UsageTable table, const QString &day, const char16_t *statement, Map map);

    QString m_folder;
    const Clock &m_clock;
    const Calendar &m_calendar;
    OpenHistory m_history;
    std::set<std::pair<UsageTable, QString>> m_unknown; // what the last load of failed
};

} // namespace zeph
