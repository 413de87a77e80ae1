// SPDX-License-Identifier: MIT
#include "base/Log.h"

namespace zeph {

// Nothing below "critical" is told unless it is asked for.
Q_LOGGING_CATEGORY(logWidgets, "zeph.widgets", QtCriticalMsg)
Q_LOGGING_CATEGORY(logAccounts, "zeph.accounts", QtCriticalMsg)
Q_LOGGING_CATEGORY(logSensing, "zeph.sensing", QtCriticalMsg)
Q_LOGGING_CATEGORY(logHistory, "zeph.history", QtCriticalMsg)
Q_LOGGING_CATEGORY(logSettings, "zeph.settings", QtCriticalMsg)
Q_LOGGING_CATEGORY(logSession, "zeph.session", QtCriticalMsg)
Q_LOGGING_CATEGORY(logSystem, "zeph.system", QtCriticalMsg)

} // namespace zeph
