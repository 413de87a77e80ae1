// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11EarlierPicture.h"

#include "adapters/session/x11/EarlierPictureRecord.h"
#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11Properties.h"
#include "adapters/session/x11/X11ServerGrab.h"

#include <utility>

namespace zeph {

namespace {

std::uint16_t wireLength(int pixels) {
    return static_cast<std::uint16_t>(pixels);
}
std::int16_t place(int pixels) {
    return static_cast<std::int16_t>(pixels);
}

/// Until the server has worked off all that was asked of it.
void waitForServer(xcb_connection_t *connection) {
    const X11Reply<xcb_get_input_focus_reply_t> fence(
        xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

xcb_gcontext_t makeContext(X11Connection &connection, xcb_pixmap_t pixmap) {
    const xcb_gcontext_t context = xcb_generate_id(connection.xcb());
    // Without this every copy would be answered by an event that wakes us up.
    const std::uint32_t exposures = 0;
    xcb_create_gc(connection.xcb(), context, pixmap, XCB_GC_GRAPHICS_EXPOSURES, &exposures);
    return context;
}

} // namespace

bool isAnnounced(X11Connection &connection, const RootPixmapTarget &target) {
    xcb_connection_t *xcb = connection.xcb();
    const auto form = xcb_get_geometry(xcb, target.pixmap);
    const auto attributes = xcb_get_window_attributes(xcb, target.pixmap);
    const auto announced = readNow(connection, connection.root(),
                                   connection.atom(X11Atom::rootPixmap), XCB_ATOM_PIXMAP, 1);
    const X11Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(xcb, form, nullptr));
    // Only a window has any.
    const X11Reply<xcb_get_window_attributes_reply_t> window(
        xcb_get_window_attributes_reply(xcb, attributes, nullptr));
    const auto numbers = numbersIn(announced.get());
    return !numbers.empty() && numbers.front() == target.pixmap && !window && geometry &&
           geometry->depth == target.depth &&
           QSize(geometry->width, geometry->height) == target.size;
}

X11EarlierPicture::Kept X11EarlierPicture::keep(X11Connection &connection,
                                                const RootPixmapTarget &target) {
    const QByteArray &display = connection.display();
    Keeper keeper(xcb_connect(display.isEmpty() ? nullptr : display.constData(), nullptr));
    if (xcb_connection_has_error(keeper.get()) != 0) {
        return {nullptr, Refusal::noRoom};
    }
    const xcb_pixmap_t kept = xcb_generate_id(keeper.get());
    const auto made = xcb_create_pixmap_checked(keeper.get(), target.depth, kept, connection.root(),
                                                wireLength(target.size.width()),
                                                wireLength(target.size.height()));
    if (const X11Reply<xcb_generic_error_t> refused{xcb_request_check(keeper.get(), made)}) {
        return {nullptr, Refusal::noRoom};
    }
    std::unique_ptr<X11EarlierPicture> picture;
    {
        const X11ServerGrab grab(connection.xcb()); // the keeper is not to be waited for meanwhile
        if (!isAnnounced(connection, target)) {
            return {nullptr, Refusal::pictureIsGone};
        }
        picture.reset(new X11EarlierPicture(connection, target, std::move(keeper), kept));
    }
    // Not before there is something to retain: the server would hold on to an empty client.
    xcb_set_close_down_mode(picture->m_keeper.get(), XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    waitForServer(picture->m_keeper.get());
    return {std::move(picture), Refusal::none};
}

X11EarlierPicture::X11EarlierPicture(X11Connection &connection, RootPixmapTarget target,
                                     Keeper keeper, xcb_pixmap_t kept)
    : m_connection(connection),
      m_target(std::move(target)),
      m_keeper(std::move(keeper)),
      m_kept(kept),
      m_context(makeContext(connection, kept)),
      m_clipped(makeContext(connection, kept)) {
    const QRect all(QPoint(), m_target.size);
    const auto former = readRecord(connection);
    copy(m_target.pixmap, m_kept, all);
    if (former && former->target.pixmap == m_target.pixmap &&
        former->target.size == m_target.size && former->target.depth == m_target.depth) {
        m_origin = Origin::formerRun;
        copy(former->kept, m_kept, all);
    }
    writeRecord(connection, EarlierPictureRecord{m_kept, m_target});
    if (former) {
        xcb_kill_client(connection.xcb(), former->kept);
    }
    xcb_flush(connection.xcb());
}

void X11EarlierPicture::noteWindows(const std::vector<xcb_window_t> &windows) {
    m_target.windows = windows;
    writeRecord(m_connection, EarlierPictureRecord{m_kept, m_target});
}

X11EarlierPicture::~X11EarlierPicture() {
    writeRecord(m_connection, std::nullopt);
    xcb_free_gc(m_connection.xcb(), m_context);
    xcb_free_gc(m_connection.xcb(), m_clipped);
    waitForServer(m_connection.xcb());
    xcb_set_close_down_mode(m_keeper.get(), XCB_CLOSE_DOWN_DESTROY_ALL);
    waitForServer(m_keeper.get());
}

void X11EarlierPicture::keepAnew(xcb_xfixes_region_t region) {
    xcb_xfixes_set_gc_clip_region(m_connection.xcb(), m_clipped, region, 0, 0);
    xcb_copy_area(m_connection.xcb(), m_target.pixmap, m_kept, m_clipped, 0, 0, 0, 0,
                  wireLength(m_target.size.width()), wireLength(m_target.size.height()));
}

void X11EarlierPicture::putBack(const QRegion &region) {
    for (const QRect &rect : region &QRect(QPoint(), m_target.size)) {
        copy(m_kept, m_target.pixmap, rect);
    }
}

void X11EarlierPicture::copy(xcb_pixmap_t from, xcb_pixmap_t to, const QRect &rect) {
    xcb_copy_area(m_connection.xcb(), from, to, m_context, place(rect.x()), place(rect.y()),
                  place(rect.x()), place(rect.y()), wireLength(rect.width()),
                  wireLength(rect.height()));
}

bool restoreDesktopPicture(X11Connection &connection) {
    const auto record = readRecord(connection);
    if (!record) {
        return false;
    }
    xcb_connection_t *xcb = connection.xcb();
    const X11ServerGrab grab(xcb);
    const bool isStillThere = isAnnounced(connection, record->target);
    if (isStillThere) {
        const xcb_gcontext_t context = makeContext(connection, record->kept);
        const QSize size = record->target.size;
        xcb_copy_area(xcb, record->kept, record->target.pixmap, context, 0, 0, 0, 0,
                      wireLength(size.width()), wireLength(size.height()));
        xcb_free_gc(xcb, context);
        for (const xcb_window_t window : record->target.windows) {
            xcb_clear_area(xcb, 1, window, 0, 0, 0, 0);
        }
    }
    writeRecord(connection, std::nullopt);
    xcb_kill_client(xcb, record->kept);
    waitForServer(xcb);
    return isStillThere;
}

} // namespace zeph
