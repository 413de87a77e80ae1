// SPDX-License-Identifier: MIT
#include "adapters/session/gnome/GnomeSession.h"

#include "adapters/session/gnome/MutterIdle.h"

#include <utility>

namespace zeph {

GnomeSession::GnomeSession(std::unique_ptr<X11Session> x11, const Surroundings &surroundings)
    : m_scales(surroundings.sessionBus),
      m_x11(std::move(x11)),
      m_accessible(surroundings.sessionBus, surroundings.background, surroundings.inputConsent),
      m_workspace(m_x11->workspace(), m_accessible, surroundings.entries, surroundings.runLoop),
      m_inputEvents(std::make_unique<MutterIdle>(surroundings.sessionBus),
                    surroundings.inputConsent, WatchedInputEvents::ConsentUse::frontApplication) {
    m_x11->screens().setScales(m_scales);
}

} // namespace zeph
