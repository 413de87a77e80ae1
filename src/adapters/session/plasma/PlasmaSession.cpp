// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PlasmaSession.h"

#include "adapters/session/plasma/PlasmaPackage.h"

#include <QCoreApplication>
#include <QStandardPaths>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

/// In the memory, and gone with the user's last session. Empty where there is no such folder.
QString picturesFolder() {
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return runtime.isEmpty() ? QString() : runtime + u"/tavi/plasma"_s;
}

QString packageTarget() {
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
           u"/plasma/wallpapers/"_s + plasmaPackageId;
}

} // namespace

PlasmaSession::PlasmaSession(std::unique_ptr<DisplaySession> own,
                             std::function<void(const PlasmaPermission &)> permit,
                             const Surroundings &surroundings)
    : m_own(std::move(own)),
      m_wallpaper({surroundings.sessionBus, surroundings.defaults, surroundings.background,
                   surroundings.runLoop, plasmaPackageSource(), packageTarget(), picturesFolder()}),
      m_windowServer({m_own->windowServer(), std::move(permit), m_own->screens(), m_wallpaper,
                      surroundings.background, surroundings.runLoop},
                     picturesFolder()),
      m_removal(QCoreApplication::applicationFilePath(), surroundings.runLoop,
                [this] { m_wallpaper.withdraw(); }) {}

} // namespace zeph
