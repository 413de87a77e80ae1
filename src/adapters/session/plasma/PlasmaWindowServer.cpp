// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PlasmaWindowServer.h"

#include "adapters/session/plasma/PlasmaPictureSurface.h"
#include "adapters/session/plasma/PlasmaWallpaper.h"
#include "base/Background.h"
#include "ports/RunLoop.h"

#include <future>
#include <utility>

namespace zeph {

PlasmaWindowServer::PlasmaWindowServer(Parties parties, PictureFolders folders)
    : m_with(std::move(parties)),
      m_folders(std::move(folders)),
      m_wallpaperChanges(m_with.wallpaper.subscribe([this] { permit(); })),
      m_screenChanges(m_with.screens.subscribe([this] { screensChanged(); })) {
    permit();
}

void PlasmaWindowServer::permit() const {
    const PlasmaWallpaper &wallpaper = m_with.wallpaper;
    m_with.permit({wallpaper.isUsable() && !m_isTransparent,
                   wallpaper.isChosen() ? wallpaper.problem() : QString()});
}

void PlasmaWindowServer::keepPictures(std::chrono::milliseconds patience) {
    if (drawingWay().mechanism != DrawingMechanism::plasmaPictures) {
        return;
    }
    auto done = std::make_shared<std::promise<void>>();
    const std::future<void> whenDone = done->get_future(); // or when it will never be
    m_with.background.run(
        m_work,
        [folders = m_folders.all(), done = std::move(done)] {
            for (const auto &folder : folders) {
                folder->keep();
            }
            done->set_value();
        },
        [] {});
    whenDone.wait_for(patience);
}

/// The pictures of outputs that are gone would stay in the memory.
void PlasmaWindowServer::screensChanged() {
    QStringList connectors;
    for (const Screen &screen : m_with.screens.all()) {
        connectors.append(screen.connector);
    }
    for (const auto &folder : m_folders.ofOthers(connectors)) {
        m_with.background.run(
            m_work, [folder, writer = folder->takeOver()] { folder->remove(writer); }, [] {});
    }
    m_with.wallpaper.lookSoon();
}

std::unique_ptr<DesktopSurface> PlasmaWindowServer::makeDesktopSurface(const Screen &screen,
                                                                       bool wantsTransparency) {
    if (wantsTransparency) {
        auto surface = m_with.own.makeDesktopSurface(screen, true);
        if (surface->isTransparent()) {
            setTransparent(true);
            return surface;
        }
    }
    setTransparent(false);
    if (drawingWay().mechanism != DrawingMechanism::plasmaPictures) {
        return m_with.own.makeDesktopSurface(screen, wantsTransparency);
    }
    return std::make_unique<PlasmaPictureSurface>(
        PlasmaPictureSurface::Tools{m_folders, m_with.background, m_with.runLoop,
                                    [this] { picturesRefused(); }},
        screen);
}

/// Through a transparent surface the user's own wallpaper is to be seen, and the icons are. The way
/// is chosen in a later turn, since whoever is told of it may be about to make surfaces.
void PlasmaWindowServer::setTransparent(bool isTransparent) {
    m_with.wallpaper.setNeeded(!isTransparent);
    if (std::exchange(m_isTransparent, isTransparent) != isTransparent) {
        m_with.runLoop.post(m_work.whileAlive([this] { permit(); }));
    }
}

/// In a later turn, since surfaces end by it.
void PlasmaWindowServer::picturesRefused() {
    if (!std::exchange(m_areRefused, true)) {
        m_with.runLoop.post(m_work.whileAlive([this] {
            m_areRefused = false;
            m_with.wallpaper.picturesRefused();
        }));
    }
}

Subscription PlasmaWindowServer::subscribeToDrawingWay(std::function<void()> handler) {
    return m_with.own.subscribeToDrawingWay(std::move(handler));
}

Subscription PlasmaWindowServer::subscribeToCompositing(std::function<void()> handler) {
    return m_with.own.subscribeToCompositing(std::move(handler));
}

Subscription PlasmaWindowServer::subscribeToLoss(std::function<void()> handler) {
    return m_with.own.subscribeToLoss(std::move(handler));
}

} // namespace zeph
