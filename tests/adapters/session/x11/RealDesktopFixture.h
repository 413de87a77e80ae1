// SPDX-License-Identifier: MIT
#pragma once

#include "../../bus/PrivateBus.h"
#include "X11Fixture.h"

#include "adapters/session/x11/RootPixmapTarget.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace zeph {

/// A display with a real window manager and a real program that draws icons on the desktop, in a
/// home of its own with a session bus on which nothing is activated.
class RealDesktopTest : public X11Test {
protected:
    RealDesktopTest() {
        const QByteArray path = home.path().toUtf8();
        session.setVariable("HOME", path);
        session.setVariable("XDG_CONFIG_HOME", path + "/.config");
        session.setVariable("XDG_CACHE_HOME", path + "/.cache");
        session.setVariable("XDG_DATA_HOME", path + "/.local/share");
        session.setVariable("XDG_RUNTIME_DIR", path);
        session.setVariable("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
        session.setVariable("GSETTINGS_BACKEND", "keyfile");
        session.setVariable("NO_AT_BRIDGE", "1");
        write(QStringLiteral("Desktop/notes.txt"), "one");
    }

    /// Writes a file of the home.
    void write(const QString &name, const QByteArray &bytes) const {
        const QString path = home.filePath(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            throw std::runtime_error("no home for the test");
        }
    }

    /// What is there to paint into now, which the program tells by these two properties of the
    /// root.
    std::optional<RootPixmapTarget> target(const QByteArray &windowProperty) const {
        const auto pixmaps = client->numbers(client->root(), "_XROOTPMAP_ID");
        const auto windows = client->numbers(client->root(), windowProperty);
        if (pixmaps.isEmpty() || windows.isEmpty() || !client->isViewable(windows.first())) {
            return std::nullopt;
        }
        const QSize size = client->size(pixmaps.first());
        if (size.isEmpty()) {
            return std::nullopt;
        }
        return RootPixmapTarget{pixmaps.first(),
                                static_cast<std::uint8_t>(client->depth(pixmaps.first())),
                                size,
                                {windows.first()}};
    }

    QTemporaryDir home;
    PrivateBus bus;
};

} // namespace zeph
