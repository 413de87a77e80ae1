// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11Atoms.h"

#include "adapters/session/x11/X11Reply.h"

#include <xcb/xcb.h>

#include <string_view>

namespace zeph {

namespace {

constexpr std::array<std::string_view, static_cast<std::size_t>(X11Atom::count)> kNames{
    "CAJA_DESKTOP_WINDOW_ID",
    "EDID",
    "UTF8_STRING",
    "WM_CLIENT_MACHINE",
    "WM_STATE",
    "XFCE_DESKTOP_WINDOW",
    "_MOTIF_WM_HINTS",
    "_GTK_APPLICATION_ID",
    "_GTK_WORKAREAS",
    "_KDE_NET_WM_DESKTOP_FILE",
    "_NET_ACTIVE_WINDOW",
    "_NET_CLIENT_LIST",
    "_NET_CLIENT_LIST_STACKING",
    "_NET_CURRENT_DESKTOP",
    "_NET_DESKTOP_NAMES",
    "_NET_NUMBER_OF_DESKTOPS",
    "_NET_RESTACK_WINDOW",
    "_NET_SUPPORTED",
    "_NET_SUPPORTING_WM_CHECK",
    "_NET_WM_DESKTOP",
    "_NET_WM_NAME",
    "_NET_WM_PID",
    "_NET_WM_STATE",
    "_NET_WM_STATE_BELOW",
    "_NET_WM_STATE_DEMANDS_ATTENTION",
    "_NET_WM_STATE_SKIP_PAGER",
    "_NET_WM_STATE_SKIP_TASKBAR",
    "_NET_WM_STATE_STICKY",
    "_NET_WM_STRUT",
    "_NET_WM_STRUT_PARTIAL",
    "_NET_WM_USER_TIME",
    "_NET_WM_WINDOW_OPACITY",
    "_NET_WM_WINDOW_TYPE",
    "_NET_WM_WINDOW_TYPE_DESKTOP",
    "_NET_WM_WINDOW_TYPE_DOCK",
    "_NET_WORKAREA",
    "_TAVI_EARLIER_PICTURE",
    "_XROOTPMAP_ID",
};

} // namespace

X11Atoms::X11Atoms(xcb_connection_t *connection) {
    std::array<xcb_intern_atom_cookie_t, kNames.size()> cookies{};
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        cookies.at(i) = xcb_intern_atom(
            connection, 0, static_cast<std::uint16_t>(kNames.at(i).size()), kNames.at(i).data());
    }
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        const X11Reply<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(connection, cookies.at(i), nullptr));
        m_atoms.at(i) = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }
}

} // namespace zeph
