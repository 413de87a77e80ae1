// SPDX-License-Identifier: MIT
#pragma once

#include "PlasmaFixture.h"
#include "adapters/bus/DBusCalls.h"
#include "support/QtPrinters.h"

namespace zeph {

/// Our wallpaper beside a shell of the test, and what is waited for there.
class PlasmaWallpaperFixture : public PlasmaFixture {
protected:
    using Wallpapers = std::map<int, QString>;

    void open() {
        makeWallpaper();
        changes = wallpaper->subscribe([this] { ++changeCount; });
    }
    void openChosen() {
        defaults.set(choiceKey, true);
        open();
        wallpaper->setNeeded(true);
    }

    bool shows(const Wallpapers &wallpapers) {
        return comes([&] { return plasma.desktops == wallpapers; });
    }
    /// So many scripts were evaluated, and their answers have come.
    bool settles(qsizetype scripts) {
        return comes([&] { return plasma.scripts.size() == scripts; }) && answersCame();
    }
    /// Whatever the shell has sent to us before has come: it is asked itself, as what comes from
    /// two programs comes in any order.
    bool answersCame() {
        bool isBack = false;
        QDBusMessage call = QDBusMessage::createMethodCall(
            QStringLiteral("org.kde.plasmashell"), QStringLiteral("/"),
            QStringLiteral("org.freedesktop.DBus.Peer"), QStringLiteral("Ping"));
        QObject context;
        callAsync(connection.bus(), call, 5000, &context,
                  [&](const QDBusMessage &) { isBack = true; });
        return comes([&] { return isBack; });
    }

    Subscription changes;
    int changeCount = 0;
};

} // namespace zeph
