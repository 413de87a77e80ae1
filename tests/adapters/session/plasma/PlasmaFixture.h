// SPDX-License-Identifier: MIT
#pragma once

#include "FakePlasma.h"
#include "adapters/session/plasma/PlasmaWallpaper.h"
#include "base/Background.h"
#include "support/FakeUserDefaults.h"
#include "support/ManualRunLoop.h"
#include "support/ManualTaskExecutor.h"

#include <QDir>

#include <optional>

namespace zeph {

/// Our wallpaper beside a shell of Plasma that the test plays, and that is not there at first.
class PlasmaFixture : public testing::Test {
protected:
    static inline const QString ours = QStringLiteral("com.tavi.Tavi");
    static inline const QString image = QStringLiteral("org.kde.image");
    static inline const QString choiceKey = QStringLiteral("zeph.plasma.wallpaper");
    static inline const QString earlierKey = QStringLiteral("zeph.plasma.earlier");

    void SetUp() override {
        QDir().mkpath(source);
        QFile file(source + QStringLiteral("/metadata.json"));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    void makeWallpaper() {
        wallpaper.emplace(PlasmaWallpaper::Surroundings{connection.bus(), defaults, background,
                                                        loop, source, target, pictures, kept});
    }

    /// Turns all loops until it holds.
    template <typename Condition>
    bool comes(Condition condition) {
        return eventually([&] {
            executor.runAll();
            loop.drain();
            return condition();
        });
    }

    const QTemporaryDir room;
    const QString source = room.filePath(QStringLiteral("from"));
    const QString target = room.filePath(QStringLiteral("wallpapers/com.tavi.Tavi"));
    const QString pictures = room.filePath(QStringLiteral("runtime/tavi/plasma"));
    const QString kept = room.filePath(QStringLiteral("cache/tavi/plasma"));
    PrivateBus bus;
    BusConnection connection{bus.address()};
    FakePlasma plasma{bus.address()};
    FakeUserDefaults defaults;
    ManualClock clock;
    ManualRunLoop loop{clock};
    ManualTaskExecutor executor;
    Background background = Background::over(executor, loop);
    std::optional<PlasmaWallpaper> wallpaper;
};

} // namespace zeph
