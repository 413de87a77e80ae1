// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11EarlierPicture.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11HeldPixmaps.h"
#include "adapters/session/x11/X11Properties.h"
#include "adapters/session/x11/X11ServerGrab.h"

#include <QSysInfo>

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

/// What becomes of that which a client has in the server when it goes.
void setCloseDownMode(xcb_connection_t *client, std::uint8_t mode) {
    xcb_set_close_down_mode(client, mode);
    waitForServer(client);
}

xcb_gcontext_t makeContext(X11Connection &connection, xcb_pixmap_t pixmap) {
    const xcb_gcontext_t context = xcb_generate_id(connection.xcb());
    // Without this every copy would be answered by an event that wakes us up.
    const std::uint32_t exposures = 0;
    xcb_create_gc(connection.xcb(), context, pixmap, XCB_GC_GRAPHICS_EXPOSURES, &exposures);
    return context;
}

/// What was kept, in its place again. The pixmap is still there.
void giveBack(X11Connection &connection, const EarlierPictureRecord &record) {
    xcb_connection_t *xcb = connection.xcb();
    const xcb_gcontext_t context = makeContext(connection, record.kept);
    const QSize size = record.target.size;
    xcb_copy_area(xcb, record.kept, record.target.pixmap, context, 0, 0, 0, 0,
                  wireLength(size.width()), wireLength(size.height()));
    xcb_free_gc(xcb, context);
    for (const xcb_window_t window : record.target.windows) {
        xcb_clear_area(xcb, 1, window, 0, 0, 0, 0);
    }
}

/// Marks the pixmap by what goes with it: its number may be that of another one later.
X11Reply<xcb_generic_error_t> mark(xcb_connection_t *keeper, const EarlierPictureRecord &record) {
    xcb_discard_reply(keeper, xcb_damage_query_version(keeper, 1, 1).sequence);
    return X11Reply<xcb_generic_error_t>(xcb_request_check(
        keeper, xcb_damage_create_checked(keeper, record.mark, record.target.pixmap,
                                          XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY)));
}

/// Whether the pixmap that was marked is still there.
bool isAlive(X11Connection &connection, xcb_damage_damage_t mark) {
    if (!connection.extension(X11Extension::damage)) {
        return false;
    }
    xcb_connection_t *xcb = connection.xcb();
    xcb_discard_reply(xcb, xcb_damage_query_version(xcb, 1, 1).sequence);
    const X11Reply<xcb_generic_error_t> gone(
        xcb_request_check(xcb, xcb_damage_subtract_checked(xcb, mark, XCB_NONE, XCB_NONE)));
    return !gone;
}

bool isAnnounced(X11Connection &connection, xcb_pixmap_t pixmap) {
    const auto announced = readNow(connection, connection.root(),
                                   connection.atom(X11Atom::rootPixmap), XCB_ATOM_PIXMAP, 1);
    const auto numbers = numbersIn(announced.get());
    return !numbers.empty() && numbers.front() == pixmap;
}

/// Whether it is a pixmap of the target's form. One round trip.
bool isOfItsForm(X11Connection &connection, xcb_pixmap_t pixmap, const RootPixmapTarget &target) {
    xcb_connection_t *xcb = connection.xcb();
    const auto form = xcb_get_geometry(xcb, pixmap);
    const auto attributes = xcb_get_window_attributes(xcb, pixmap);
    const X11Reply<xcb_get_geometry_reply_t> geometry(xcb_get_geometry_reply(xcb, form, nullptr));
    // Only a window has any.
    const X11Reply<xcb_get_window_attributes_reply_t> window(
        xcb_get_window_attributes_reply(xcb, attributes, nullptr));
    return !window && geometry && geometry->depth == target.depth &&
           QSize(geometry->width, geometry->height) == target.size;
}

/// Whether it is what a desktop program shows, as far as the server can tell, rather than something
/// of another program that got its number.
bool isPictureOfDesktop(X11Connection &connection, const RootPixmapTarget &target) {
    return isOfItsForm(connection, target.pixmap, target) &&
           (target.isAnnounced ? isAnnounced(connection, target.pixmap)
                               : isHeldPixmap(connection, target.windows.front(), target.pixmap));
}

/// Whether the server still has what a former run kept.
bool isKept(X11Connection &connection, const EarlierPictureRecord &record) {
    return isOfItsForm(connection, record.kept, record.target);
}

/// Whether that can be put back: what the record is of is still what the desktop program shows.
/// Without a mark another pixmap of that number and form passes for it.
bool isStillThere(X11Connection &connection, const EarlierPictureRecord &record) {
    return isKept(connection, record) &&
           (record.mark == XCB_NONE ? isPictureOfDesktop(connection, record.target)
                                    : isAlive(connection, record.mark));
}

/// Has the server let go of what a former run kept, unless it is gone already: its number may be
/// that of another program's by now.
void giveUp(X11Connection &connection, const EarlierPictureRecord &record) {
    if (isKept(connection, record)) {
        xcb_kill_client(connection.xcb(), record.kept);
    }
}

std::uint32_t thisMachine() {
    return machineNumber(QSysInfo::machineUniqueId());
}

} // namespace

X11EarlierPicture::Kept X11EarlierPicture::keep(X11Connection &connection,
                                                const RootPixmapTarget &target) {
    const QByteArray &display = connection.display();
    Keeper keeper(xcb_connect(display.isEmpty() ? nullptr : display.constData(), nullptr));
    if (xcb_connection_has_error(keeper.get()) != 0) {
        return {nullptr, Refusal::noRoom};
    }
    EarlierPictureRecord record;
    record.kept = xcb_generate_id(keeper.get());
    record.mark = xcb_generate_id(keeper.get());
    record.target = target;
    record.machine = thisMachine();
    const auto made = xcb_create_pixmap_checked(keeper.get(), target.depth, record.kept,
                                                connection.root(), wireLength(target.size.width()),
                                                wireLength(target.size.height()));
    if (const X11Reply<xcb_generic_error_t> refused{xcb_request_check(keeper.get(), made)}) {
        return {nullptr, Refusal::noRoom};
    }
    if (mark(keeper.get(), record)) {
        return {nullptr, Refusal::pictureIsGone};
    }
    // Before what a former run kept is given up: a kill in between costs a pixmap that nobody knows
    // of, and no picture. Not before there is something to retain: the server would hold on to an
    // empty client.
    setCloseDownMode(keeper.get(), XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    std::unique_ptr<X11EarlierPicture> picture;
    {
        const X11ServerGrab grab(connection.xcb()); // the keeper is not to be waited for meanwhile
        if (isPictureOfDesktop(connection, target) && isAlive(connection, record.mark)) {
            picture.reset(new X11EarlierPicture(connection, std::move(record), std::move(keeper)));
        }
    }
    if (!picture) {
        setCloseDownMode(keeper.get(), XCB_CLOSE_DOWN_DESTROY_ALL);
        return {nullptr, Refusal::pictureIsGone};
    }
    return {std::move(picture), Refusal::none};
}

X11EarlierPicture::X11EarlierPicture(X11Connection &connection, EarlierPictureRecord record,
                                     Keeper keeper)
    : m_connection(connection),
      m_record(std::move(record)),
      m_keeper(std::move(keeper)),
      m_context(makeContext(connection, m_record.kept)),
      m_clipped(makeContext(connection, m_record.kept)) {
    const QRect all(QPoint(), m_record.target.size);
    const auto former = readRecord(connection);
    copy(m_record.target.pixmap, m_record.kept, all);
    if (former && isStillThere(connection, *former)) {
        if (former->target.pixmap == m_record.target.pixmap) {
            m_origin = Origin::formerRun;
            copy(former->kept, m_record.kept, all);
        } else {
            giveBack(connection, *former); // another picture that the killed run had painted into
        }
    }
    writeRecord(connection, m_record);
    if (former) {
        giveUp(connection, *former);
    }
    xcb_flush(connection.xcb());
}

void X11EarlierPicture::noteWindows(const std::vector<xcb_window_t> &windows) {
    m_record.target.windows = windows;
    writeRecord(m_connection, m_record);
}

X11EarlierPicture::~X11EarlierPicture() {
    writeRecord(m_connection, std::nullopt);
    xcb_free_gc(m_connection.xcb(), m_context);
    xcb_free_gc(m_connection.xcb(), m_clipped);
    waitForServer(m_connection.xcb());
    setCloseDownMode(m_keeper.get(), XCB_CLOSE_DOWN_DESTROY_ALL);
}

void X11EarlierPicture::keepAnew(xcb_xfixes_region_t region) {
    xcb_xfixes_set_gc_clip_region(m_connection.xcb(), m_clipped, region, 0, 0);
    const RootPixmapTarget &target = m_record.target;
    xcb_copy_area(m_connection.xcb(), target.pixmap, m_record.kept, m_clipped, 0, 0, 0, 0,
                  wireLength(target.size.width()), wireLength(target.size.height()));
}

void X11EarlierPicture::putBack(const QRegion &region) {
    for (const QRect &rect : region &QRect(QPoint(), m_record.target.size)) {
        copy(m_record.kept, m_record.target.pixmap, rect);
    }
}

void X11EarlierPicture::copy(xcb_pixmap_t from, xcb_pixmap_t to, const QRect &rect) {
    xcb_copy_area(m_connection.xcb(), from, to, m_context, place(rect.x()), place(rect.y()),
                  place(rect.x()), place(rect.y()), wireLength(rect.width()),
                  wireLength(rect.height()));
}

bool restoreDesktopPicture(X11Connection &connection) {
    const auto record = readRecord(connection);
    if (!record || !isLeftHere(*record, thisMachine(), connection.isLocal())) {
        return false;
    }
    xcb_connection_t *xcb = connection.xcb();
    const X11ServerGrab grab(xcb);
    const bool isBack = isStillThere(connection, *record);
    if (isBack) {
        giveBack(connection, *record);
    }
    writeRecord(connection, std::nullopt);
    giveUp(connection, *record);
    waitForServer(xcb);
    return isBack;
}

} // namespace zeph
