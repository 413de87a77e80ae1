// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/xproto.h>

#include <array>
#include <cstddef>

namespace zeph {

/// The names that this program uses, spelt out in X11Atoms.cpp in the same order.
enum class X11Atom : std::size_t {
    cajaDesktopWindow,
    edid,
    utf8String,
    wmClientMachine,
    wmState,
    xfceDesktopWindow,
    motifWmHints,
    gtkApplicationId,
    gtkWorkareas,
    kdeDesktopFile,
    netActiveWindow,
    netClientList,
    netClientListStacking,
    netCurrentDesktop,
    netDesktopNames,
    netNumberOfDesktops,
    netRestackWindow,
    netSupported,
    netSupportingWmCheck,
    netWmDesktop,
    netWmName,
    netWmPid,
    netWmState,
    netWmStateBelow,
    netWmStateDemandsAttention,
    netWmStateSkipPager,
    netWmStateSkipTaskbar,
    netWmStateSticky,
    netWmStrut,
    netWmStrutPartial,
    netWmUserTime,
    netWmWindowOpacity,
    netWmWindowType,
    netWmWindowTypeDesktop,
    netWmWindowTypeDock,
    netWorkarea,
    earlierPicture,
    rootPixmap,
    count,
};

/// The server's numbers for those names, asked for in one round trip.
class X11Atoms {
public:
    explicit X11Atoms(xcb_connection_t *connection);

    xcb_atom_t operator[](X11Atom atom) const { return m_atoms.at(static_cast<std::size_t>(atom)); }

private:
    std::array<xcb_atom_t, static_cast<std::size_t>(X11Atom::count)> m_atoms{};
};

} // namespace zeph
