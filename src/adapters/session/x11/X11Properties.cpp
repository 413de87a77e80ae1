// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Properties.h"

#include "adapters/session/x11/X11Connection.h"

namespace zeph {

unsigned requestProperty(X11Connection &connection, xcb_window_t window, xcb_atom_t property,
                         xcb_atom_t type, std::uint32_t longs) {
    return xcb_get_property(connection.xcb(), 0, window, property, type, 0, longs).sequence;
}

X11Property readNow(X11Connection &connection, xcb_window_t window, xcb_atom_t property,
                    xcb_atom_t type, std::uint32_t longs) {
    const auto cookie = xcb_get_property(connection.xcb(), 0, window, property, type, 0, longs);
    return X11Property(xcb_get_property_reply(connection.xcb(), cookie, nullptr));
}

const xcb_get_property_reply_t *propertyIn(const X11AnyReply &reply) {
    return static_cast<const xcb_get_property_reply_t *>(reply.get());
}

std::vector<std::uint32_t> numbersIn(const xcb_get_property_reply_t *property) {
    if (!property || property->format != 32) {
        return {};
    }
    const auto *first = static_cast<const std::uint32_t *>(xcb_get_property_value(property));
    return {first, first + property->value_len};
}

std::vector<xcb_window_t> windowsIn(const xcb_get_property_reply_t *property) {
    return numbersIn(property);
}

std::vector<xcb_atom_t> atomsIn(const xcb_get_property_reply_t *property) {
    return numbersIn(property);
}

QByteArray bytesIn(const xcb_get_property_reply_t *property) {
    if (!property || property->format != 8) {
        return {};
    }
    return {static_cast<const char *>(xcb_get_property_value(property)),
            static_cast<qsizetype>(property->value_len)};
}

QSize sizeIn(const X11AnyReply &geometry) {
    const auto *place = static_cast<const xcb_get_geometry_reply_t *>(geometry.get());
    return place ? QSize(place->width, place->height) : QSize();
}

} // namespace zeph
