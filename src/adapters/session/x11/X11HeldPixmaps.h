// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/SilentPicture.h"

#include <functional>
#include <vector>

namespace zeph {

class X11Connection;
class X11EventListener;

/// Has `handler` called with the pixmaps that the program of `window` made on connections of their
/// own, ended and had the server hold on to, as is the custom for pictures of the desktop; those of
/// other programs are left out. Never when `owner` is gone by then; with none where the server
/// can't tell, as it can't of programs on other machines. Two round trips, which nobody waits for.
void findHeldPixmaps(X11Connection &connection, X11EventListener &owner, xcb_window_t window,
                     std::function<void(std::vector<PixmapForm>)> handler);

/// Whether this pixmap is such a one. One round trip.
bool isHeldPixmap(X11Connection &connection, xcb_window_t window, xcb_pixmap_t pixmap);

/// Has `handler` called with whether another program than that of `window` made the pixmap; never
/// when `owner` is gone by then. False where the server can't tell, as of programs on other
/// machines. One round trip, which nobody waits for.
void askForMaker(X11Connection &connection, X11EventListener &owner, xcb_window_t window,
                 xcb_pixmap_t pixmap, std::function<void(bool isAnothers)> handler);

} // namespace zeph
