// SPDX-License-Identifier: MIT
#include "settings/EventDay.h"

#include <QDateTime>

#include <cmath>

namespace zeph {

namespace {

constexpr double lastMinute = 60; // seconds

double startOf(QDate day) {
    return static_cast<double>(day.startOfDay(Qt::LocalTime).toSecsSinceEpoch());
}

} // namespace

Date eventDate(QDate day, CountdownRecurrence recurrence) {
    if (recurrence == CountdownRecurrence::none) {
        return {startOf(day.addDays(1)) - lastMinute};
    }
    return {startOf(day)};
}

QDate localDay(Date date) {
    const auto seconds = static_cast<qint64>(std::floor(date.secondsSince1970));
    return QDateTime::fromSecsSinceEpoch(seconds, Qt::LocalTime).date();
}

} // namespace zeph
