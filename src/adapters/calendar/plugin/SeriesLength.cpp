// SPDX-License-Identifier: MIT
#include "adapters/calendar/plugin/SeriesLength.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zeph {

namespace {

// The library takes some 100,000 steps a second.
constexpr double kMostSteps = 250'000;

constexpr double kDay = 86'400;

struct Period {
    ICalRecurrenceFrequency frequency;
    double seconds;
};

constexpr std::array kPeriods{
    Period{I_CAL_SECONDLY_RECURRENCE, 1},       Period{I_CAL_MINUTELY_RECURRENCE, 60},
    Period{I_CAL_HOURLY_RECURRENCE, 3'600},     Period{I_CAL_DAILY_RECURRENCE, kDay},
    Period{I_CAL_WEEKLY_RECURRENCE, 7 * kDay},  Period{I_CAL_MONTHLY_RECURRENCE, 28 * kDay},
    Period{I_CAL_YEARLY_RECURRENCE, 365 * kDay}};

double secondsOf(ICalRecurrenceFrequency frequency) {
    const auto *const found =
        std::find_if(kPeriods.begin(), kPeriods.end(),
                     [frequency](const Period &period) { return period.frequency == frequency; });
    return found == kPeriods.end() ? kDay : found->seconds;
}

int countOf(GArray *values) {
    const auto *const first = reinterpret_cast<const gshort *>(values->data);
    const auto *const end = first + values->len;
    const auto count = static_cast<int>(std::find(first, end, I_CAL_RECURRENCE_ARRAY_MAX) - first);
    g_array_unref(values);
    return count;
}

/// How many steps the library takes along a rule that begins at `start`.
double stepsOf(ICalRecurrence *rule, double start, double end) {
    const double period = secondsOf(i_cal_recurrence_get_freq(rule));
    double steps =
        std::max(0.0, end - start) / period / std::max<int>(1, i_cal_recurrence_get_interval(rule));
    const int days = countOf(i_cal_recurrence_get_by_day_array(rule)) +
                     countOf(i_cal_recurrence_get_by_month_day_array(rule)) +
                     countOf(i_cal_recurrence_get_by_year_day_array(rule));
    // Of a longer period, each listed hour, minute or second is a step of its own.
    for (const auto &[count, unit] :
         {std::pair{countOf(i_cal_recurrence_get_by_second_array(rule)), 60.0},
          std::pair{countOf(i_cal_recurrence_get_by_minute_array(rule)), 3'600.0},
          std::pair{countOf(i_cal_recurrence_get_by_hour_array(rule)), kDay}}) {
        steps *= period >= unit ? std::max(1, count) : 1;
    }
    // At most a step for each day, however the days are chosen.
    return days > 0 ? steps * std::max(1.0, period / kDay) : steps;
}

/// The same along all rules of a kind that the entry has.
template <typename RuleOf>
double stepsOfAll(ICalComponent *entry, ICalPropertyKind kind, RuleOf ruleOf, double start,
                  double end) {
    double steps = 0;
    GLibPtr<ICalProperty> property(i_cal_component_get_first_property(entry, kind));
    while (property) {
        const GLibPtr<ICalRecurrence> rule(ruleOf(property.get()));
        steps += stepsOf(rule.get(), start, end);
        property.reset(i_cal_component_get_next_property(entry, kind));
    }
    return steps;
}

} // namespace

GLibPtr<ICalComponent> firstInstanceOfLongSeries(ICalComponent *entry, Date end) {
    const GLibPtr<ICalTime> start(i_cal_component_get_dtstart(entry));
    if (!start) {
        return nullptr;
    }
    const auto began = static_cast<double>(i_cal_time_as_timet(start.get()));
    const auto along = [&](ICalPropertyKind kind, auto ruleOf) {
        return stepsOfAll(entry, kind, ruleOf, began, end.secondsSince1970);
    };
    // What a series leaves out is walked along as well.
    if (along(I_CAL_RRULE_PROPERTY, &i_cal_property_get_rrule) +
            along(I_CAL_EXRULE_PROPERTY, &i_cal_property_get_exrule) <=
        kMostSteps) {
        return nullptr;
    }
    GLibPtr<ICalComponent> first(i_cal_component_clone(entry));
    e_cal_util_component_remove_property_by_kind(first.get(), I_CAL_RRULE_PROPERTY, TRUE);
    e_cal_util_component_remove_property_by_kind(first.get(), I_CAL_EXRULE_PROPERTY, TRUE);
    return first;
}

} // namespace zeph
