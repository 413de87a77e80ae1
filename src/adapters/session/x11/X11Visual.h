// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xproto.h>

#include <cstdint>
#include <optional>

namespace zeph {

class X11Connection;

/// A way to store pixels that matches QImage's 32-bit formats byte by byte.
struct X11Visual {
    xcb_visualid_t number = 0;
    std::uint8_t depth = 24;
};

/// The visual of this depth (24, or 32 with alpha), the root's own if that fits; absent when the
/// server has none in our byte order.
std::optional<X11Visual> findVisual(const X11Connection &connection, std::uint8_t depth);

} // namespace zeph
