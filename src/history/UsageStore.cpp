// SPDX-License-Identifier: MIT
#include "history/UsageStore.h"

#include "base/Console.h"
#include "base/Log.h"
#include "history/HistoryAhead.h"
#include "history/PrivateFiles.h"
#include "history/UsageStatements.h"
#include "ports/Calendar.h"
#include "ports/Clock.h"

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

QString sql(const char16_t *text) {
    return QString::fromUtf16(text);
}

DatabaseValue nullable(const std::optional<QString> &text) {
    return text ? DatabaseValue(*text) : DatabaseValue();
}

DatabaseValue nullable(const std::optional<Date> &date) {
    return date ? DatabaseValue(date->secondsSince1970) : DatabaseValue();
}

/// NULL reads as 0, and both mean that there was no such moment.
std::optional<Date> moment(const DatabaseRow &row, int column) {
    const double seconds = row.real(column);
    return seconds > 0 ? std::optional(Date{seconds}) : std::nullopt;
}

AppUsage readAppUsage(const DatabaseRow &row) {
    AppUsage usage;
    usage.bundleID = row.text(0);
    usage.name = row.text(1);
    usage.seconds = row.real(2);
    return usage;
}

std::pair<ActivitySummary, InputRhythm> readDailyStats(const DatabaseRow &row) {
    InputRhythm rhythm;
    rhythm.totalKeystrokes = row.integer(0);
    rhythm.mouseClicks = row.integer(1);
    rhythm.mouseDistanceMeters = row.real(2);
    ActivitySummary summary;
    summary.activeSeconds = row.real(3);
    summary.machineOnSeconds = row.real(4);
    summary.appSwitches = row.integer(5);
    summary.longestFocusSeconds = row.real(6);
    if (const QString app = row.text(7); !app.isEmpty()) {
        summary.longestFocusApp = app;
    }
    summary.firstActive = moment(row, 8);
    summary.lastActive = moment(row, 9);
    return {summary, rhythm};
}

double keystrokesPerActiveMinute(const DatabaseRow &row) {
    const double keystrokes = row.real(0);
    const double activeSeconds = row.real(1);
    return activeSeconds > 0 ? keystrokes / (activeSeconds / 60.0) : 0;
}

double mean(const std::vector<double> &values) {
    if (values.empty()) {
        return 0;
    }
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

} // namespace

UsageStore::UsageStore(const QString &folder, const Clock &clock, const Calendar &calendar)
    : UsageStore(folder, openHistory(folder), clock, calendar) {}

UsageStore::UsageStore(HistoryAhead &history, const Clock &clock, const Calendar &calendar)
    : UsageStore(history.folder(), history.take(), clock, calendar) {}

UsageStore::UsageStore(QString folder, OpenHistory opened, const Clock &clock,
                       const Calendar &calendar)
    : m_folder(std::move(folder)),
      m_clock(clock),
      m_calendar(calendar),
      m_history(std::move(opened)) {
    if (m_history.database && m_history.database->isDamaged()) {
        beginAnew();
    }
}

UsageStore::~UsageStore() = default;

/// Makes up for what went wrong earlier: a disk that was full may have room again.
void UsageStore::mend() {
    if (m_history.database && m_history.database->isDamaged()) {
        beginAnew();
    } else if (m_history.database && !m_history.hasTables) {
        m_history.hasTables = m_history.database->exec(sql(statements::createAppUsage)) &&
                              m_history.database->exec(sql(statements::createDailyStats));
    }
}

void UsageStore::beginAnew() {
    m_history.database.reset();
    const auto aside = setDatabaseAside(historyPath(m_folder));
    if (!aside) {
        qCWarning(logHistory, "the damaged history can't be set aside, so nothing is kept");
        return;
    }
    printLine(u"[Zeph] the history was damaged and is kept as %1"_s.arg(*aside));
    m_unknown.clear(); // nothing is stored any more
    m_history = openHistory(m_folder);
}

QString UsageStore::dayKey(Date date) const {
    return m_calendar.dayKey(date);
}

template <typename Map>
auto UsageStore::load(UsageTable table, const QString &day, const char16_t *statement, Map map) {
    mend();
    using Rows = std::vector<std::invoke_result_t<Map, const DatabaseRow &>>;
    if (!m_history.database) {
        return Rows();
    }
    auto rows = m_history.database->read(sql(statement), {day}, map);
    if (rows) {
        m_unknown.erase({table, day});
    } else if (m_unknown.insert({table, day}).second) {
        qCWarning(logHistory, "what is stored of %s can't be read, so nothing is saved over it",
                  qPrintable(day));
    }
    return rows.value_or(Rows());
}

bool UsageStore::isKnown(UsageTable table, const QString &day) const {
    return m_unknown.count({table, day}) == 0;
}

bool UsageStore::maySave(UsageTable table, const QString &day) {
    mend();
    return m_history.database && isKnown(table, day);
}

std::vector<AppUsage> UsageStore::loadAppUsage(const QString &day) {
    return load(UsageTable::applications, day, statements::selectAppUsage, readAppUsage);
}

bool UsageStore::saveAppUsage(const std::vector<AppUsage> &usage, const QString &day) {
    if (!maySave(UsageTable::applications, day)) {
        return false;
    }
    bool isSaved = true;
    for (const AppUsage &app : usage) {
        isSaved &= m_history.database->write(sql(statements::upsertAppUsage),
                                             {day, app.bundleID, app.name, app.seconds});
    }
    return isSaved;
}

std::optional<std::pair<ActivitySummary, InputRhythm>>
UsageStore::loadDailyStats(const QString &day) {
    const auto rows = load(UsageTable::totals, day, statements::selectDailyStats, readDailyStats);
    return rows.empty() ? std::nullopt : std::optional(rows.front());
}

bool UsageStore::saveDailyStats(const ActivitySummary &summary, const InputRhythm &rhythm,
                                const QString &day) {
    return maySave(UsageTable::totals, day) &&
           m_history.database->write(
               sql(statements::upsertDailyStats),
               {day, rhythm.totalKeystrokes, rhythm.mouseClicks, rhythm.mouseDistanceMeters,
                summary.activeSeconds, summary.machineOnSeconds, summary.appSwitches,
                summary.longestFocusSeconds, nullable(summary.longestFocusApp),
                nullable(summary.firstActive), nullable(summary.lastActive)});
}

double UsageStore::averageKPM(bool excludingToday, int days) const {
    if (!m_history.database) {
        return 0;
    }
    QString statement = sql(statements::selectRates);
    std::vector<DatabaseValue> parameters;
    if (excludingToday) {
        statement += sql(statements::andOtherDays);
        parameters.emplace_back(dayKey(m_clock.now()));
    }
    statement += sql(statements::newestFirst);
    parameters.emplace_back(qint64(days));
    auto rates = m_history.database->query(statement, parameters, keystrokesPerActiveMinute);
    rates.erase(std::remove_if(rates.begin(), rates.end(), [](double rate) { return !(rate > 0); }),
                rates.end());
    return mean(rates);
}

double UsageStore::averageActiveSeconds(int days) const {
    if (!m_history.database) {
        return 0;
    }
    return mean(m_history.database->query(sql(statements::selectActiveSeconds),
                                          {dayKey(m_clock.now()), qint64(days)},
                                          [](const DatabaseRow &row) { return row.real(0); }));
}

} // namespace zeph
