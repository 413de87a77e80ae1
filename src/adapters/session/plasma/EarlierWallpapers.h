// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>

namespace zeph {

class UserDefaults;

/// The settings' key of the wallpapers that Plasma's desktops showed before ours.
inline const QString earlierWallpapersKey = QStringLiteral("zeph.plasma.earlier");

/// What came of bringing those back.
enum class WallpapersBack {
    done,
    nothingKept,
    notSaved, ///< they are back, and the settings could not be told so
    refused,
    noShell, ///< or one that has no desktops yet
};

/// Brings Plasma's earlier wallpapers back while the program does not run, and takes what it has
/// put into the user's folders for ours. Waits for Plasma's shell. `bus` is the session bus.
WallpapersBack bringWallpapersBack(const QDBusConnection &bus, UserDefaults &defaults);

} // namespace zeph
