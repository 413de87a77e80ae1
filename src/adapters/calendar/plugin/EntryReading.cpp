// SPDX-License-Identifier: MIT
#include "adapters/calendar/plugin/EntryReading.h"

#include "adapters/calendar/plugin/SeriesLength.h"

#include <set>

namespace zeph {

namespace {

std::optional<QString> titleOf(ICalComponent *entry) {
    const QString title = QString::fromUtf8(i_cal_component_get_summary(entry));
    return title.isEmpty() ? std::nullopt : std::optional(title);
}

time_t instantOf(const ICalTime *time, ICalTimezone *local) {
    ICalTimezone *const own = i_cal_time_get_timezone(time);
    const bool floats = own == nullptr || i_cal_time_is_date(time) != FALSE;
    return i_cal_time_as_timet_with_zone(time, floats ? local : own);
}

/// The zone that a property names; a name that nobody knows counts as the local one.
ICalTimezone *zoneOf(ICalProperty *property, const ICalTime *time, const ZoneLookup &zones) {
    if (i_cal_time_is_utc(time) != FALSE) {
        return i_cal_timezone_get_utc_timezone();
    }
    const GLibPtr<ICalParameter> parameter(
        i_cal_property_get_first_parameter(property, I_CAL_TZID_PARAMETER));
    const char *const name = parameter ? i_cal_parameter_get_tzid(parameter.get()) : nullptr;
    if (name == nullptr || *name == '\0' || i_cal_time_is_date(time) != FALSE) {
        return zones.local;
    }
    GError *error = nullptr;
    ICalTimezone *const zone = zones.find(name, zones.where, zones.cancellable, &error);
    const GLibPtr<GError> ignored(error);
    return zone == nullptr ? zones.local : zone;
}

/// The library takes the thirteenth month for the next year's first, and so on.
bool isUsable(const ICalTime *time) {
    if (time == nullptr || i_cal_time_is_null_time(time) != FALSE) {
        return false;
    }
    const int month = i_cal_time_get_month(time);
    const int day = i_cal_time_get_day(time);
    return month >= 1 && month <= 12 && day >= 1 &&
           day <= i_cal_time_days_in_month(month, i_cal_time_get_year(time)) &&
           i_cal_time_get_hour(time) < 24 && i_cal_time_get_minute(time) < 60 &&
           i_cal_time_get_second(time) <= 60;
}

/// The instant of a property of an entry, absent when there is none or it can't be read.
std::optional<time_t> instantOfProperty(ICalComponent *entry, ICalPropertyKind kind,
                                        ICalTime *(*read)(ICalProperty *),
                                        const ZoneLookup &zones) {
    const GLibPtr<ICalProperty> property(i_cal_component_get_first_property(entry, kind));
    const GLibPtr<ICalTime> time(property ? read(property.get()) : nullptr);
    if (!isUsable(time.get())) {
        return std::nullopt;
    }
    return i_cal_time_as_timet_with_zone(time.get(), zoneOf(property.get(), time.get(), zones));
}

ICalTime *readRecurrenceId(ICalProperty *property) {
    return i_cal_property_get_recurrenceid(property);
}
ICalTime *readDue(ICalProperty *property) {
    return i_cal_property_get_due(property);
}
ICalTime *readStart(ICalProperty *property) {
    return i_cal_property_get_dtstart(property);
}

/// Which occurrences of which series have an entry of their own.
std::set<std::pair<std::string, time_t>> detachedOccurrences(const Entries &entries,
                                                             const ZoneLookup &zones) {
    std::set<std::pair<std::string, time_t>> detached;
    for (const auto &[id, entry] : entries) {
        const auto instant =
            instantOfProperty(entry.get(), I_CAL_RECURRENCEID_PROPERTY, &readRecurrenceId, zones);
        if (instant) {
            detached.emplace(id.first, *instant);
        }
    }
    return detached;
}

/// What the expansion of one entry collects.
struct Expansion {
    std::vector<EdsOccurrence> &occurrences;
    const std::set<std::pair<std::string, time_t>> &detached;
    const EdsQuery &query;
    ICalTimezone *local;
    const EntryId *id = nullptr;
    std::optional<QString> title;
};

gboolean addOccurrence(ICalComponent * /*entry*/, ICalTime *start, ICalTime *end, gpointer data,
                       GCancellable * /*cancellable*/, GError ** /*error*/) {
    auto &expansion = *static_cast<Expansion *>(data);
    const time_t from = instantOf(start, expansion.local);
    const time_t to = instantOf(end, expansion.local);
    if (expansion.id->second.empty() &&
        expansion.detached.count({expansion.id->first, from}) != 0) {
        return TRUE;
    }
    const Date first{static_cast<double>(from)};
    const Date last{static_cast<double>(to)};
    // An event without a length belongs to the instant at which it is.
    const bool overlaps =
        first < expansion.query.windowEnd &&
        (last > expansion.query.windowStart || first >= expansion.query.windowStart);
    if (overlaps) {
        expansion.occurrences.push_back(
            {first, last, i_cal_time_is_date(start) != FALSE, expansion.title});
    }
    return TRUE;
}

bool isOpen(ICalComponent *task) {
    const GLibPtr<ICalProperty> completed(
        i_cal_component_get_first_property(task, I_CAL_COMPLETED_PROPERTY));
    const ICalPropertyStatus status = i_cal_component_get_status(task);
    return !completed && status != I_CAL_STATUS_COMPLETED && status != I_CAL_STATUS_CANCELLED;
}

/// When a task is due, as `EdsTask` tells it.
struct Due {
    time_t instant = 0;
    bool isAllDay = false;
};

std::optional<Due> dueOfProperty(ICalComponent *task, ICalPropertyKind kind,
                                 ICalTime *(*read)(ICalProperty *), const ZoneLookup &zones) {
    const GLibPtr<ICalProperty> property(i_cal_component_get_first_property(task, kind));
    const GLibPtr<ICalTime> time(property ? read(property.get()) : nullptr);
    if (!isUsable(time.get())) {
        return std::nullopt;
    }
    const bool isAllDay = i_cal_time_is_date(time.get()) != FALSE;
    ICalTimezone *const zone = zoneOf(property.get(), time.get(), zones);
    if (isAllDay) {
        i_cal_time_set_is_date(time.get(), FALSE);
        i_cal_time_set_time(time.get(), 12, 0, 0);
    }
    return Due{i_cal_time_as_timet_with_zone(time.get(), zone), isAllDay};
}

/// The due date, or the start and the length that stand for it.
std::optional<Due> dueOf(ICalComponent *task, const ZoneLookup &zones) {
    const auto due = dueOfProperty(task, I_CAL_DUE_PROPERTY, &readDue, zones);
    if (due) {
        return due;
    }
    const GLibPtr<ICalProperty> length(
        i_cal_component_get_first_property(task, I_CAL_DURATION_PROPERTY));
    auto start = dueOfProperty(task, I_CAL_DTSTART_PROPERTY, &readStart, zones);
    if (!length || !start) {
        return std::nullopt;
    }
    const GLibPtr<ICalDuration> duration(i_cal_property_get_duration(length.get()));
    start->instant += i_cal_duration_as_int(duration.get());
    return start;
}

} // namespace

EntryId entryIdOf(ICalComponent *entry) {
    const char *const uid = i_cal_component_get_uid(entry);
    const GLibPtr<char> occurrence(e_cal_util_component_get_recurid_as_string(entry));
    return {uid == nullptr ? "" : uid, occurrence ? occurrence.get() : ""};
}

std::vector<EdsOccurrence> readOccurrences(const Entries &entries, const EdsQuery &query,
                                           const ZoneLookup &zones) {
    std::vector<EdsOccurrence> occurrences;
    const auto detached = detachedOccurrences(entries, zones);
    Expansion expansion{occurrences, detached, query, zones.local, nullptr, {}};
    ICalTimezone *const utc = i_cal_timezone_get_utc_timezone();
    const GLibPtr<ICalTime> start(i_cal_time_new_from_timet_with_zone(
        static_cast<time_t>(query.windowStart.secondsSince1970), FALSE, utc));
    const GLibPtr<ICalTime> end(i_cal_time_new_from_timet_with_zone(
        static_cast<time_t>(query.windowEnd.secondsSince1970), FALSE, utc));
    for (const auto &[id, entry] : entries) {
        const auto first = firstInstanceOfLongSeries(entry.get(), query.windowEnd);
        expansion.id = &id;
        expansion.title = query.withTitles ? titleOf(entry.get()) : std::nullopt;
        GError *error = nullptr;
        // A rule that can't be expanded leaves its event out and the others in.
        e_cal_recur_generate_instances_sync(first ? first.get() : entry.get(), start.get(),
                                            end.get(), &addOccurrence, &expansion, zones.find,
                                            zones.where, zones.local, zones.cancellable, &error);
        const GLibPtr<GError> ignored(error);
    }
    return occurrences;
}

std::vector<EdsTask> readTasks(const Entries &entries, const ZoneLookup &zones) {
    std::vector<EdsTask> tasks;
    for (const auto &[id, entry] : entries) {
        const auto due = isOpen(entry.get()) ? dueOf(entry.get(), zones) : std::nullopt;
        if (due) {
            tasks.push_back(
                {Date{static_cast<double>(due->instant)}, due->isAllDay, titleOf(entry.get())});
        }
    }
    return tasks;
}

} // namespace zeph
