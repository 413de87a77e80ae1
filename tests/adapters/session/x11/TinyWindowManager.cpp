// SPDX-License-Identifier: MIT
#include "TinyWindowManager.h"

#include "adapters/session/x11/X11EventListener.h"
#include "adapters/session/x11/X11Reply.h"

#include <array>
#include <stdexcept>

namespace zeph {

TinyWindowManager::TinyWindowManager(const QByteArray &display, int frames)
    : m_connection(xcb_connect(display.constData(), nullptr)), m_frames(frames) {
    xcb_connection_t *xcb = m_connection.get();
    m_root = xcb_setup_roots_iterator(xcb_get_setup(xcb)).data->root;
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT;
    const X11Reply<xcb_generic_error_t> refusal(xcb_request_check(
        xcb, xcb_change_window_attributes_checked(xcb, m_root, XCB_CW_EVENT_MASK, &mask)));
    if (refusal) {
        throw std::runtime_error("another window manager runs");
    }
}

void TinyWindowManager::work() {
    while (const X11Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
        if (event->response_type == XCB_MAP_REQUEST) {
            manage(eventAs<xcb_map_request_event_t>(*event).window);
        } else if (event->response_type == XCB_CONFIGURE_REQUEST) {
            configure(eventAs<xcb_configure_request_event_t>(*event));
        }
    }
    xcb_flush(m_connection.get());
}

int TinyWindowManager::framesAround(xcb_window_t window) const {
    const auto managed = m_managed.find(window);
    return managed == m_managed.end() ? 0 : managed->second;
}

void TinyWindowManager::manage(xcb_window_t window) {
    xcb_connection_t *xcb = m_connection.get();
    const X11Reply<xcb_get_geometry_reply_t> place(
        xcb_get_geometry_reply(xcb, xcb_get_geometry(xcb, window), nullptr));
    if (place && m_managed.emplace(window, m_frames).second) {
        xcb_window_t parent = m_root;
        for (int i = 0; i < m_frames; ++i) {
            parent = makeFrame(parent, *place);
        }
        xcb_change_save_set(xcb, XCB_SET_MODE_INSERT, window);
        xcb_reparent_window(xcb, window, parent, 0, 0);
    }
    xcb_map_window(xcb, window);
}

xcb_window_t TinyWindowManager::makeFrame(xcb_window_t parent,
                                          const xcb_get_geometry_reply_t &place) {
    xcb_connection_t *xcb = m_connection.get();
    const xcb_window_t frame = xcb_generate_id(xcb);
    // It takes buttons for itself, as those that move and raise windows by clicks.
    const std::array<std::uint32_t, 2> values{1, XCB_EVENT_MASK_BUTTON_PRESS};
    const bool isOuter = parent == m_root;
    xcb_create_window(xcb, XCB_COPY_FROM_PARENT, frame, parent, isOuter ? place.x : std::int16_t{0},
                      isOuter ? place.y : std::int16_t{0}, place.width, place.height, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values.data());
    xcb_map_window(xcb, frame);
    return frame;
}

void TinyWindowManager::configure(const xcb_configure_request_event_t &request) {
    if (m_managed.contains(request.window)) {
        return; // it decides
    }
    const std::array<std::uint32_t, 2> size{request.width, request.height};
    xcb_configure_window(m_connection.get(), request.window,
                         XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, size.data());
}

} // namespace zeph
