// SPDX-License-Identifier: MIT
#include "adapters/session/choose/SessionOffer.h"

namespace zeph {

SessionOffer offerOfEnvironment() {
    SessionOffer offer;
    offer.displaySystem = qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ? DisplaySystem::x11
                                                                         : DisplaySystem::xwayland;
    offer.currentDesktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    return offer;
}

} // namespace zeph
