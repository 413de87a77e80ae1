// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/EarlierWallpapers.h"

#include "adapters/bus/DBusCalls.h"
#include "adapters/desktop/PlasmaScript.h"
#include "adapters/session/plasma/PlasmaPackage.h"
#include "adapters/session/plasma/PlasmaScripts.h"
#include "ports/UserDefaults.h"

#include <algorithm>

namespace zeph {

namespace {

bool isNobodyThere(const QDBusConnection &bus, const QDBusMessage &answer) {
    return !bus.isConnected() ||
           (answer.type() == QDBusMessage::ErrorMessage && tellsOfNoService(answer.errorName()));
}

} // namespace

WallpapersBack bringWallpapersBack(const QDBusConnection &bus, UserDefaults &defaults) {
    if (!defaults.contains(earlierWallpapersKey)) {
        return WallpapersBack::nothingKept;
    }
    const auto earlier =
        wallpapersIn(defaults.get<QString>(earlierWallpapersKey).value_or(QString()));
    const QDBusMessage answer = evaluateInPlasma(bus, putBackScript(earlier));
    if (isNobodyThere(bus, answer)) {
        return WallpapersBack::noShell;
    }
    const auto desktops = desktopsIn(printedBy(answer).value_or(QString()));
    if (desktops && desktops->empty()) {
        return WallpapersBack::noShell;
    }
    const auto showsOurs = [](const PlasmaDesktop &one) {
        return one.wallpaper == plasmaPackageId;
    };
    if (!desktops || std::any_of(desktops->begin(), desktops->end(), showsOurs)) {
        return WallpapersBack::refused;
    }
    defaults.remove(earlierWallpapersKey);
    removePlasmaPackage(plasmaPackageTarget(),
                        {plasmaPicturesFolder(), plasmaKeptPicturesFolder()});
    return defaults.isSaved() ? WallpapersBack::done : WallpapersBack::notSaved;
}

} // namespace zeph
