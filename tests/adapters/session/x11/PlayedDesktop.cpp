// SPDX-License-Identifier: MIT
#include "PlayedDesktop.h"

#include "adapters/session/x11/X11Reply.h"

#include <array>

namespace zeph {

namespace {

std::uint16_t size16(int pixels) {
    return static_cast<std::uint16_t>(pixels);
}
std::int16_t place16(int pixels) {
    return static_cast<std::int16_t>(pixels);
}

} // namespace

PlayedDesktop::PlayedDesktop(const QByteArray &display, QSize size, QColor colour,
                             std::uint8_t depth)
    : m_connection(xcb_connect(display.constData(), nullptr)),
      m_screen(xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data),
      m_size(size),
      m_depth(depth),
      m_window(xcb_generate_id(m_connection.get())) {
    xcb_connection_t *xcb = m_connection.get();
    const std::uint32_t overridesRedirect = 1;
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, m_window, m_screen->root, 0, 0,
                      size16(size.width()), size16(size.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT, &overridesRedirect);
    const xcb_window_t iconWindow = xcb_generate_id(xcb);
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, iconWindow, m_window, place16(icon.x()),
                      place16(icon.y()), size16(icon.width()), size16(icon.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL,
                      &iconColour);
    xcb_map_window(xcb, iconWindow);
    makePicture(colour);
    xcb_map_window(xcb, m_window);
    announce();
}

RootPixmapTarget PlayedDesktop::target() const {
    return {m_picture, m_depth, m_size, {m_window}};
}

void PlayedDesktop::makePicture(QColor colour) {
    m_picture = xcb_generate_id(m_connection.get());
    fillPicture(colour);
}

void PlayedDesktop::fillPicture(QColor colour) {
    xcb_create_pixmap(m_connection.get(), m_depth, m_picture, m_screen->root,
                      size16(m_size.width()), size16(m_size.height()));
    if (m_depth == m_screen->root_depth) {
        xcb_change_window_attributes(m_connection.get(), m_window, XCB_CW_BACK_PIXMAP, &m_picture);
    }
    paint(QRect(QPoint(), m_size), colour);
}

void PlayedDesktop::paint(const QRect &rect, QColor colour) {
    xcb_connection_t *xcb = m_connection.get();
    const xcb_gcontext_t context = xcb_generate_id(xcb);
    const std::uint32_t pixel = colour.rgba();
    xcb_create_gc(xcb, context, m_picture, XCB_GC_FOREGROUND, &pixel);
    const xcb_rectangle_t area{place16(rect.x()), place16(rect.y()), size16(rect.width()),
                               size16(rect.height())};
    xcb_poly_fill_rectangle(xcb, m_picture, context, 1, &area);
    xcb_free_gc(xcb, context);
    xcb_clear_area(xcb, 0, m_window, area.x, area.y, area.width, area.height);
    flush();
}

void PlayedDesktop::announce() {
    static const QByteArray name = "_XROOTPMAP_ID";
    xcb_connection_t *xcb = m_connection.get();
    const X11Reply<xcb_intern_atom_reply_t> atom(xcb_intern_atom_reply(
        xcb, xcb_intern_atom(xcb, 0, size16(static_cast<int>(name.size())), name.constData()),
        nullptr));
    xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, m_screen->root, atom->atom, XCB_ATOM_PIXMAP, 32,
                        1, &m_picture);
    flush();
}

void PlayedDesktop::renew(QSize size, QColor colour) {
    const xcb_pixmap_t last = m_picture;
    m_size = size;
    makePicture(colour);
    xcb_free_pixmap(m_connection.get(), last);
    announce();
}

void PlayedDesktop::reuseNumber(QColor colour) {
    // One that is shown as a background would outlive its number.
    const std::uint32_t none = XCB_BACK_PIXMAP_NONE;
    xcb_change_window_attributes(m_connection.get(), m_window, XCB_CW_BACK_PIXMAP, &none);
    freePicture();
    fillPicture(colour);
}

void PlayedDesktop::freePicture() {
    xcb_free_pixmap(m_connection.get(), m_picture);
    flush();
}

void PlayedDesktop::flush() {
    xcb_connection_t *xcb = m_connection.get();
    const X11Reply<xcb_get_input_focus_reply_t> fence(
        xcb_get_input_focus_reply(xcb, xcb_get_input_focus(xcb), nullptr));
}

} // namespace zeph
