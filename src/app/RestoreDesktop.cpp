// SPDX-License-Identifier: MIT
#include "app/RestoreDesktop.h"

#include "adapters/bus/HungBuses.h"
#include "adapters/desktop/DesktopShells.h"
#include "adapters/session/nemo/NemoTool.h"
#include "adapters/session/plasma/EarlierWallpapers.h"
#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11EarlierPicture.h"
#include "adapters/storage/FolderLock.h"
#include "adapters/storage/JsonUserDefaults.h"
#include "app/OwnFolder.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace zeph {

namespace {

// As long as a start waits for it.
constexpr std::chrono::milliseconds kBusPatience{2000};

// Six calls of a tool, each of which is given two seconds.
constexpr std::chrono::milliseconds kNemoPatience{12000};

Restored restorePicture() {
    const auto connection = X11Connection::open();
    if (!connection) {
        return Restored::unreachable;
    }
    return restoreDesktopPicture(*connection) ? Restored::done : Restored::nothingKept;
}

Restored restoreWallpapers(UserDefaults &defaults) {
    switch (bringWallpapersBack(QDBusConnection::sessionBus(), defaults)) {
    case WallpapersBack::done:
        return Restored::done;
    case WallpapersBack::notSaved:
        return Restored::notSaved;
    case WallpapersBack::nothingKept:
        break;
    case WallpapersBack::refused:
        return Restored::refused;
    case WallpapersBack::noShell:
        return Restored::unreachable;
    }
    return Restored::nothingKept;
}

Restored restoreNemo(UserDefaults &defaults) {
    switch (giveNemoBack(defaults, kNemoPatience)) {
    case NemoOutcome::done:
        return defaults.isSaved() ? Restored::done : Restored::notSaved;
    case NemoOutcome::nothingToDo:
        break;
    case NemoOutcome::refused:
        return Restored::refused;
    case NemoOutcome::unavailable:
        return Restored::unreachable;
    }
    return Restored::nothingKept;
}

Restored restoreIconsHere(UserDefaults &defaults) {
    const auto shell =
        makeDesktopShell(qEnvironmentVariable("XDG_CURRENT_DESKTOP"),
                         QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation),
                         QDBusConnection::sessionBus());
    return restoreIcons(*shell, defaults);
}

} // namespace

Restoration restoreDesktop(const RestoredFolders &folders) {
    // Held until the end, so that a start waits. Without a folder there was no run, and none is
    // made to find that out.
    std::optional<FolderLock> lock;
    if (QFileInfo::exists(folders.data)) {
        lock.emplace(folders.data, std::chrono::milliseconds(0));
        if (lock->isHeldByAnother()) {
            return {.isRunning = true};
        }
    }
    Restoration restoration{.picture = restorePicture()};
    if (QFileInfo::exists(folders.settings)) {
        JsonUserDefaults defaults(folders.settings);
        restoration.wallpapers = restoreWallpapers(defaults);
        restoration.fileManager = restoreNemo(defaults);
        restoration.icons = restoreIconsHere(defaults);
    }
    return restoration;
}

int runRestoreDesktop(char **arguments) {
    avoidHungBuses(kBusPatience);
    int argumentCount = 1;
    const QCoreApplication loop(argumentCount, arguments); // for the notices of the connection
    const RestorationWords words = restorationWords(restoreDesktop(
        {ownFolder(QStandardPaths::GenericDataLocation),
         ownFolder(QStandardPaths::GenericConfigLocation) + QStringLiteral("/defaults.json")}));
    std::fprintf(words.isFailure ? stderr : stdout, "%s\n", qUtf8Printable(words.line));
    return words.isFailure ? EXIT_FAILURE : EXIT_SUCCESS;
}

} // namespace zeph
