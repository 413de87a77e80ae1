// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PlasmaSession.h"

#include "adapters/session/plasma/PlasmaPackage.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <utility>

namespace zeph {

PlasmaSession::PlasmaSession(std::unique_ptr<DisplaySession> own,
                             std::function<void(const PlasmaPermission &)> permit,
                             const Surroundings &surroundings)
    : m_own(std::move(own)),
      m_wallpaper({surroundings.sessionBus, surroundings.defaults, surroundings.background,
                   surroundings.runLoop, plasmaPackageSource(), plasmaPackageTarget(),
                   plasmaPicturesFolder(), plasmaKeptPicturesFolder()}),
      m_windowServer({m_own->windowServer(), std::move(permit), m_own->screens(), m_wallpaper,
                      surroundings.background, surroundings.runLoop},
                     PictureFolders(plasmaPicturesFolder(), plasmaKeptPicturesFolder())),
      m_removal(QCoreApplication::applicationFilePath(), surroundings.runLoop,
                [this] { m_wallpaper.withdraw(); }) {}

void PlasmaSession::leave(std::chrono::milliseconds patience) {
    const QDeadlineTimer deadline(patience);
    m_wallpaper.giveBack(patience);
    // In case Plasma goes without having heard of it.
    m_windowServer.keepPictures(std::chrono::milliseconds(deadline.remainingTime()));
}

} // namespace zeph
