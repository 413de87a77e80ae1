// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Reply.h"

#include <QByteArray>
#include <QSize>

#include <xcb/xproto.h>

#include <cstdint>
#include <vector>

namespace zeph {

class X11Connection;

using X11Property = X11Reply<xcb_get_property_reply_t>;

/// Asks for a property of at most `longs` 4-byte units and answers the request's number.
unsigned requestProperty(X11Connection &connection, xcb_window_t window, xcb_atom_t property,
                         xcb_atom_t type, std::uint32_t longs);

/// The same, waiting for the answer; null when the window is gone.
X11Property readNow(X11Connection &connection, xcb_window_t window, xcb_atom_t property,
                    xcb_atom_t type, std::uint32_t longs);

/// A reply to `requestProperty` as what it is; null stays null.
const xcb_get_property_reply_t *propertyIn(const X11AnyReply &reply);

/// The values of a property; none when it is absent or of another form.
std::vector<std::uint32_t> numbersIn(const xcb_get_property_reply_t *property);
std::vector<xcb_window_t> windowsIn(const xcb_get_property_reply_t *property);
std::vector<xcb_atom_t> atomsIn(const xcb_get_property_reply_t *property);
QByteArray bytesIn(const xcb_get_property_reply_t *property);

/// The size in a reply to xcb_get_geometry, in device pixels; empty without one.
QSize sizeIn(const X11AnyReply &geometry);

} // namespace zeph
