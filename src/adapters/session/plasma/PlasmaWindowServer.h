// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/choose/SessionOffer.h"
#include "adapters/session/plasma/PictureFolders.h"
#include "base/WorkOwner.h"
#include "ports/WindowServer.h"

#include <chrono>

namespace zeph {

class Background;
class PlasmaWallpaper;
class RunLoop;
class Screens;

/// The surfaces of a display system under Plasma: pictures for our wallpaper in it where that is
/// the way of drawing, else that system's own. Outlives its surfaces.
class PlasmaWindowServer : public WindowServer {
public:
    /// What it works with; all outlive it.
    struct Parties {
        WindowServer &own;                                    ///< of the display system
        std::function<void(const PlasmaPermission &)> permit; ///< has it choose its way by this
        Screens &screens;
        PlasmaWallpaper &wallpaper;
        const Background &background;
        RunLoop &runLoop;
    };

    PlasmaWindowServer(Parties parties, PictureFolders folders);

    /// Has the newest whole picture of each output outlive the session, without the parts that
    /// changed since. Waits for it, no longer than that.
    void keepPictures(std::chrono::milliseconds patience);

    std::unique_ptr<DesktopSurface> makeDesktopSurface(const Screen &screen,
                                                       bool wantsTransparency) override;
    DrawingWay drawingWay() const override { return m_with.own.drawingWay(); }
    Subscription subscribeToDrawingWay(std::function<void()> handler) override;
    Subscription subscribeToCompositing(std::function<void()> handler) override;
    Subscription subscribeToLoss(std::function<void()> handler) override;

private:
    void permit() const;
    void screensChanged();
    void setTransparent(bool isTransparent);
    void picturesRefused();

    Parties m_with;
    PictureFolders m_folders;
    bool m_isTransparent = false; // what was made last
    bool m_areRefused = false;    // and that is still to be told
    Subscription m_wallpaperChanges;
    Subscription m_screenChanges;
    WorkOwner m_work;
};

} // namespace zeph
