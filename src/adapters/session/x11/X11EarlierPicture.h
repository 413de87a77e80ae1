// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/EarlierPictureRecord.h"

#include <QRegion>

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

#include <memory>

namespace zeph {

class X11Connection;

/// What a desktop program's picture looks like without us, kept in the X server by a connection
/// whose pixmap the server holds on to even when this program is killed: a later start, or
/// `restoreDesktopPicture`, puts it back.
class X11EarlierPicture {
public:
    /// Where that which is kept came from.
    enum class Origin { desktopProgram, formerRun };

    /// Why nothing is kept.
    enum class Refusal { none, noRoom, pictureIsGone };

    struct Kept {
        std::unique_ptr<X11EarlierPicture> picture; ///< null where it was refused
        Refusal refusal = Refusal::none;
    };

    /// Keeps all of the picture of `target`, or what a former run kept that was killed while it
    /// painted into the same pixmap: another one may have its number by now. Refused when the
    /// server has no room for it, or `target` is not a picture of a desktop program of that
    /// form at this moment. A few round trips.
    static Kept keep(X11Connection &connection, const RootPixmapTarget &target);
    /// Forgets what was kept. To be put back before.
    ~X11EarlierPicture();
    X11EarlierPicture(const X11EarlierPicture &) = delete;
    X11EarlierPicture &operator=(const X11EarlierPicture &) = delete;

    Origin origin() const { return m_origin; }

    /// A context for drawing into pixmaps of the picture's depth.
    xcb_gcontext_t context() const { return m_context; }

    /// Keeps anew what the desktop program painted in this region.
    void keepAnew(xcb_xfixes_region_t region);

    /// The program shows the same picture in these windows now.
    void noteWindows(const std::vector<xcb_window_t> &windows);

    /// Paints what was kept into the desktop program's picture.
    void putBack(const QRegion &region);

private:
    struct Disconnect {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };
    using Keeper = std::unique_ptr<xcb_connection_t, Disconnect>;

    X11EarlierPicture(X11Connection &connection, EarlierPictureRecord record, Keeper keeper);
    void copy(xcb_pixmap_t from, xcb_pixmap_t to, const QRect &rect);

    X11Connection &m_connection;
    EarlierPictureRecord m_record;
    Keeper m_keeper;
    xcb_gcontext_t m_context;
    xcb_gcontext_t m_clipped; // for the copies of regions
    Origin m_origin = Origin::desktopProgram;
};

/// Puts the picture back that a run of this program kept, which was killed, and has the desktop
/// program show it; false when there is nothing to put back. What a run on another machine keeps is
/// left alone: nobody here knows whether that one still runs. For the way out of a desktop, such as
/// the removal of this program. A few round trips.
bool restoreDesktopPicture(X11Connection &connection);

} // namespace zeph
