// SPDX-License-Identifier: MIT
#include "history/UsageStore.h"

#include "history/Database.h"
#include "history/PrivateFiles.h"
#include "history/UsageStatements.h"
#include "platform/Calendar.h"
#include "platform/Clock.h"

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

std::unique_ptr<Database> openPrivately(const QString &folder) {
    makePrivateFolder(folder);
    const QString path = folder + u"/zeph.sqlite"_s;
    makePrivateDatabaseFile(path);
    return Database::open(path);
}

} // namespace

UsageStore::UsageStore(const QString &folder, const Clock &clock, const Calendar &calendar)
    : m_clock(clock), m_calendar(calendar), m_db(openPrivately(folder)) {
    migrate();
}

UsageStore::~UsageStore() = default;

void UsageStore::migrate() {
    if (m_db) {
        m_db->exec(sql(statements::createAppUsage));
        m_db->exec(sql(statements::createDailyStats));
    }
}

QString UsageStore::dayKey(Date date) const {
    return m_calendar.dayKey(date);
}

std::vector<AppUsage> UsageStore::loadAppUsage(const QString &day) const {
    return m_db ? m_db->query(sql(statements::selectAppUsage), {day}, readAppUsage)
                : std::vector<AppUsage>();
}

void UsageStore::saveAppUsage(const std::vector<AppUsage> &usage, const QString &day) {
    if (!m_db) {
        return;
    }
    for (const AppUsage &app : usage) {
        m_db->write(sql(statements::upsertAppUsage), {day, app.bundleID, app.name, app.seconds});
    }
}

std::optional<std::pair<ActivitySummary, InputRhythm>>
UsageStore::loadDailyStats(const QString &day) const {
    if (!m_db) {
        return std::nullopt;
    }
    const auto rows = m_db->query(sql(statements::selectDailyStats), {day}, readDailyStats);
    return rows.empty() ? std::nullopt : std::optional(rows.front());
}

void UsageStore::saveDailyStats(const ActivitySummary &summary, const InputRhythm &rhythm,
                                const QString &day) {
    if (!m_db) {
        return;
    }
    m_db->write(sql(statements::upsertDailyStats),
                {day, rhythm.totalKeystrokes, rhythm.mouseClicks, rhythm.mouseDistanceMeters,
                 summary.activeSeconds, summary.machineOnSeconds, summary.appSwitches,
                 summary.longestFocusSeconds, nullable(summary.longestFocusApp),
                 nullable(summary.firstActive), nullable(summary.lastActive)});
}

double UsageStore::averageKPM(bool excludingToday, int days) const {
    if (!m_db) {
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
    auto rates = m_db->query(statement, parameters, keystrokesPerActiveMinute);
    rates.erase(std::remove_if(rates.begin(), rates.end(), [](double rate) { return !(rate > 0); }),
                rates.end());
    return mean(rates);
}

double UsageStore::averageActiveSeconds(int days) const {
    if (!m_db) {
        return 0;
    }
    return mean(m_db->query(sql(statements::selectActiveSeconds),
                            {dayKey(m_clock.now()), qint64(days)},
                            [](const DatabaseRow &row) { return row.real(0); }));
}

} // namespace zeph
