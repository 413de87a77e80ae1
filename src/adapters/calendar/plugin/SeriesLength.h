// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/calendar/plugin/GLibHandles.h"
#include "base/Date.h"

namespace zeph {

/// A copy of `entry` without its rules when walking along them up to `end` would take more than a
/// few seconds, such as those of something every minute since years ago: no real appointment is
/// worth that, and somebody's hoax even less. Null for any other entry.
GLibPtr<ICalComponent> firstInstanceOfLongSeries(ICalComponent *entry, Date end);

} // namespace zeph
