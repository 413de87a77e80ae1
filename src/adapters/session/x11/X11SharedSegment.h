// SPDX-License-Identifier: MIT
#pragma once

#include <xcb/shm.h>

#include <cstddef>
#include <optional>

namespace zeph {

class X11Connection;

/// Memory that the X server reads without copying. It has no name anywhere: when both sides are
/// gone, by whatever death, so is it.
class X11SharedSegment {
public:
    /// Absent when the server is remote, lacks shared memory or refuses it. One round trip.
    static std::optional<X11SharedSegment> create(X11Connection &connection, std::size_t bytes);

    ~X11SharedSegment();
    X11SharedSegment(X11SharedSegment &&other) noexcept;
    X11SharedSegment &operator=(X11SharedSegment &&) = delete;
    X11SharedSegment(const X11SharedSegment &) = delete;
    X11SharedSegment &operator=(const X11SharedSegment &) = delete;

    unsigned char *data() const { return m_data; }
    xcb_shm_seg_t number() const { return m_number; }

private:
    X11SharedSegment(X11Connection &connection, unsigned char *data, std::size_t bytes,
                     xcb_shm_seg_t number);

    X11Connection *m_connection;
    unsigned char *m_data;
    std::size_t m_bytes;
    xcb_shm_seg_t m_number;
};

} // namespace zeph
