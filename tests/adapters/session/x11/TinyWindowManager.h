// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <xcb/xcb.h>

#include <map>
#include <memory>

namespace zeph {

/// A window manager that does little more than wrap each window in frames, whose input shape it
/// leaves as it is, as some real ones do. Its end is that of a manager that dies.
class TinyWindowManager {
public:
    /// Wraps each window in so many frames, one within the other.
    TinyWindowManager(const QByteArray &display, int frames);

    /// Does what was asked of it until now.
    void work();

    /// How many frames there are around the window.
    int framesAround(xcb_window_t window) const;

private:
    void manage(xcb_window_t window);
    void configure(const xcb_configure_request_event_t &request);
    xcb_window_t makeFrame(xcb_window_t parent, const xcb_get_geometry_reply_t &place);

    struct Disconnect {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    int m_frames;
    std::map<xcb_window_t, int> m_managed; // windows and the frames around them
};

} // namespace zeph
