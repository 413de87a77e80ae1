// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>

/// What the program can tell of its own work, by category. All are silent until they are asked
/// for, as by QT_LOGGING_RULES="zeph.widgets.info=true" or "zeph.*=true". Nothing that is secret
/// or typed is ever logged.
namespace zeph {

Q_DECLARE_LOGGING_CATEGORY(logWidgets)  ///< zeph.widgets: why a widget does not show
Q_DECLARE_LOGGING_CATEGORY(logAccounts) ///< zeph.accounts: accounts and the keyring
Q_DECLARE_LOGGING_CATEGORY(logSensing)  ///< zeph.sensing: ticks and monitors
Q_DECLARE_LOGGING_CATEGORY(logHistory)  ///< zeph.history: the daily totals
Q_DECLARE_LOGGING_CATEGORY(logSettings) ///< zeph.settings: the settings file
Q_DECLARE_LOGGING_CATEGORY(logSession)  ///< zeph.session: displays, surfaces, window managers
Q_DECLARE_LOGGING_CATEGORY(
    logSystem) ///< zeph.system: absent services, and how the wallpaper is drawn

} // namespace zeph
