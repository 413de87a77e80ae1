// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11Monitors.h"

#include "platform/linux/x11/X11Connection.h"

#include <xcb/randr.h>

namespace zeph {

std::optional<QRect> monitorGeometry(X11Connection &connection, const QString &name) {
    if (!connection.extension(X11Extension::randr)) {
        return std::nullopt;
    }
    // The server hides monitors from those who have not announced version 1.5.
    const auto version = xcb_randr_query_version(connection.xcb(), 1, 5);
    xcb_discard_reply(connection.xcb(), version.sequence);
    const X11Reply<xcb_randr_get_monitors_reply_t> monitors(xcb_randr_get_monitors_reply(
        connection.xcb(), xcb_randr_get_monitors(connection.xcb(), connection.root(), 1), nullptr));
    const xcb_atom_t wanted = connection.intern(name.toUtf8());
    if (!monitors) {
        return std::nullopt;
    }
    for (auto it = xcb_randr_get_monitors_monitors_iterator(monitors.get()); it.rem > 0;
         xcb_randr_monitor_info_next(&it)) {
        if (it.data->name == wanted) {
            return QRect(it.data->x, it.data->y, it.data->width, it.data->height);
        }
    }
    return std::nullopt;
}

} // namespace zeph
