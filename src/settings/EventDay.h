// SPDX-License-Identifier: MIT
#pragma once

#include "settings/CountdownEvent.h"

#include <QDate>

namespace zeph {

/// The instant that stands for an event on `day`, of which no time is known: the last minute, so
/// that it does not count as over before the day is; of one that comes again the beginning, from
/// which on it is "today".
Date eventDate(QDate day, CountdownRecurrence recurrence);

/// The day of `date` in the user's zone.
QDate localDay(Date date);

} // namespace zeph
