// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <map>
#include <optional>
#include <vector>

namespace zeph {

// What Plasma's shell is told in its own scripts. Each display has a desktop in each activity, with
// a number that stays with it for good.

/// Of our wallpaper's package.
inline const QString plasmaPackageId = QStringLiteral("com.tavi.Tavi");

/// One of Plasma's desktops, and the package of the wallpaper that it shows.
struct PlasmaDesktop {
    int number = 0;
    QString wallpaper = {};
    bool isReturned = false; ///< it is the one that `returnScript` brought back, with its picture

    bool operator==(const PlasmaDesktop &) const = default;
};

/// Wallpapers by the number of their desktops.
using PlasmaWallpapers = std::map<int, QString>;

/// Where our wallpaper finds its pictures.
struct PlasmaPictures {
    QString folder = {}; ///< the address of the one around the folders of the outputs
    QString kept = {};   ///< that of the folder of those that outlive a session
    QString start = {};  ///< another text whenever `folder` may have been made anew
};

/// Prints all desktops.
QString tellDesktopsScript();

/// Puts our wallpaper into the desktops of these numbers, and tells it in all that show it where
/// its pictures lie. Prints all desktops as they are then.
QString putInScript(const std::vector<int> &numbers, const PlasmaPictures &pictures);

/// Brings back these wallpapers, and Plasma's usual one to desktops without any, wherever ours is
/// shown. Prints all desktops as they are then.
QString putBackScript(const PlasmaWallpapers &earlier);

/// The same for the time until our wallpaper is put in again, which each desktop that gets its
/// earlier one this way is marked with.
QString returnScript(const PlasmaWallpapers &earlier);

/// What any of them printed; absent for anything else.
std::optional<std::vector<PlasmaDesktop>> desktopsIn(const QString &printed);

/// `PlasmaWallpapers` as they are kept in the settings.
QString keptWallpapers(const PlasmaWallpapers &wallpapers);

/// What was kept; none for what can't be understood.
PlasmaWallpapers wallpapersIn(const QString &kept);

} // namespace zeph
