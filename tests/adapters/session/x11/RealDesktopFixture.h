// SPDX-License-Identifier: MIT
#pragma once

#include "../../bus/PrivateBus.h"
#include "X11Fixture.h"

#include "adapters/session/x11/X11DesktopPicture.h"
#include "adapters/session/x11/X11RootPixmapSurface.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace zeph {

/// What the programs of a test still use while they end.
struct RealDesktopHome {
    QTemporaryDir home;
    PrivateBus bus;
};

/// A display with a real window manager and a real program that draws icons on the desktop, in a
/// home of its own with a session bus on which nothing is activated.
class RealDesktopTest : protected RealDesktopHome, public X11Test {
protected:
    /// `windowProperty` is that of the root by which the program names its window.
    explicit RealDesktopTest(QByteArray windowProperty)
        : m_windowProperty(std::move(windowProperty)) {
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
        picture = std::make_unique<X11DesktopPicture>(*connection, [this] { ++reloads; });
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

    /// What there is to paint into now.
    std::optional<RootPixmapTarget> target() const {
        const auto pixmaps = client->numbers(client->root(), "_XROOTPMAP_ID");
        const xcb_window_t window = desktopWindow();
        if (pixmaps.isEmpty() || !client->isViewable(window)) {
            return std::nullopt;
        }
        const QSize size = client->size(pixmaps.first());
        if (size.isEmpty()) {
            return std::nullopt;
        }
        return RootPixmapTarget{pixmaps.first(),
                                static_cast<std::uint8_t>(client->depth(pixmaps.first())),
                                size,
                                {window}};
    }

    virtual xcb_window_t desktopWindow() const {
        return client->numbers(client->root(), m_windowProperty).value(0);
    }

    /// Waits for `condition`, while the picture follows the program.
    bool waitFollowing(const std::function<bool()> &condition) {
        return waitUntil(
            [&] {
                picture->setTarget(target());
                return condition();
            },
            std::chrono::seconds(20));
    }
    bool followUntilPixel(QPoint position, QColor colour) {
        return waitFollowing([&] { return client->pixel(position) == (colour.rgb() & 0xFFFFFF); });
    }

    /// Waits for the program's own picture of one colour with an icon in `area`. It shows black
    /// before, and an icon over that.
    void waitForIcons(const QRect &area, QColor colour) {
        icons = area;
        background = colour;
        QImage last;
        ASSERT_TRUE(waitFollowing([&] {
            before = client->screenshot(area);
            return picture->isThere() && hasIcon(before, colour) &&
                   std::exchange(last, before) == before;
        })) << "the program did not start";
    }

    /// Whether the picture of one colour is there, and something on it.
    static bool hasIcon(const QImage &image, QColor colour) {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixel(x, y) != colour.rgb() ? 1 : 0;
            }
        }
        return count > 300 && count < image.width() * image.height() / 4;
    }

    /// Whether the icons look as before, and every pixel where the program's picture was is ours.
    bool liesBeneathIcons(QColor ours) const {
        const QImage now = client->screenshot(icons);
        int ofIcons = 0;
        for (int y = 0; y < now.height(); ++y) {
            for (int x = 0; x < now.width(); ++x) {
                const bool isPicture = before.pixel(x, y) == background.rgb();
                if (isPicture && now.pixel(x, y) != ours.rgb()) {
                    return false;
                }
                ofIcons += !isPicture && now.pixel(x, y) == before.pixel(x, y) ? 1 : 0;
            }
        }
        return ofIcons > 300;
    }

    std::unique_ptr<X11RootPixmapSurface> make() {
        return std::make_unique<X11RootPixmapSurface>(*connection, *picture, wholeScreen());
    }
    std::unique_ptr<X11RootPixmapSurface> shown(QColor colour) {
        auto surface = make();
        fill(*surface, colour);
        surface->orderFront();
        EXPECT_TRUE(followUntilPixel(kFree, colour));
        return surface;
    }

    static constexpr QPoint kFree{900, 600}; ///< where there is no icon
    std::unique_ptr<X11DesktopPicture> picture;
    int reloads = 0;
    QRect icons;
    QColor background;
    QImage before;

private:
    QByteArray m_windowProperty;
};

} // namespace zeph
