// SPDX-License-Identifier: MIT
#include "adapters/session/open/KWinParts.h"

#include "adapters/session/open/OpenSession.h"
#include "adapters/session/plasma/PlasmaWallpaper.h"
#include "adapters/session/wayland/WaylandIdle.h"
#include "ports/UserDefaults.h"

#include <QDir>

namespace zeph {

namespace {

/// Where KWin can read what another program of the user writes.
QString sharedFolder() {
    const QString folder = kwinScriptFolder(qEnvironmentVariable("XDG_RUNTIME_DIR"),
                                            qEnvironmentVariable("FLATPAK_ID"));
    return folder.isEmpty() ? QDir::tempPath() : folder;
}

} // namespace

KWinParts::KWinParts(const SessionSurroundings &surroundings, WaylandConnection &connection,
                     const QDBusConnection &sessionBus)
    : m_script(sessionBus, sharedFolder()),
      m_workspace(m_script, surroundings.entries, surroundings.runLoop),
      m_virtualDesktops(sessionBus),
      m_insets(
          sessionBus, m_script, surroundings.runLoop,
          [&defaults = surroundings.defaults] { return defaults.boolean(plasmaWallpaperKey); }),
      m_inputEvents(std::make_unique<WaylandIdle>(connection), surroundings.inputConsent) {}

} // namespace zeph
