// SPDX-License-Identifier: MIT
#include "app/RestoreDesktop.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11EarlierPicture.h"
#include "adapters/storage/FolderLock.h"
#include "app/OwnFolder.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>
#include <optional>

namespace zeph {

Restoration restoreDesktop(const QString &dataFolder) {
    // Held until the end, so that a start waits. Without a folder there was no run, and none is
    // made to find that out.
    std::optional<FolderLock> lock;
    if (QFileInfo::exists(dataFolder)) {
        lock.emplace(dataFolder, std::chrono::milliseconds(0));
        if (lock->isHeldByAnother()) {
            return Restoration::isRunning;
        }
    }
    const auto connection = X11Connection::open();
    if (!connection) {
        return Restoration::noDisplay;
    }
    return restoreDesktopPicture(*connection) ? Restoration::done : Restoration::nothingKept;
}

int runRestoreDesktop(char **arguments) {
    int argumentCount = 1;
    const QCoreApplication loop(argumentCount, arguments); // for the notices of the connection
    switch (restoreDesktop(ownFolder(QStandardPaths::GenericDataLocation))) {
    case Restoration::done:
        std::puts("tavi: the desktop has its earlier picture back");
        return EXIT_SUCCESS;
    case Restoration::nothingKept:
        std::puts("tavi: there is no earlier picture to put back");
        return EXIT_SUCCESS;
    case Restoration::isRunning:
        std::fputs("tavi: it is running, and puts the earlier picture back when it ends\n", stderr);
        return EXIT_FAILURE;
    case Restoration::noDisplay:
        break;
    }
    std::fputs("tavi: there is no X display to put a picture back on\n", stderr);
    return EXIT_FAILURE;
}

} // namespace zeph
