// SPDX-License-Identifier: MIT
#include "adapters/desktop/X11DesktopLook.h"

#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace zeph {

namespace {

constexpr std::uint32_t mostWindows = 4096;
constexpr std::uint32_t mostTypes = 32;
constexpr std::uint32_t mostClassLongs = 64;

struct FreeReply {
    void operator()(void *reply) const { std::free(reply); }
};
template <typename Reply>
using OwnedReply = std::unique_ptr<Reply, FreeReply>;

struct Disconnect {
    void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
};

/// What windows say, each asked for and waited for.
class WindowLook {
public:
    WindowLook() : m_connection(xcb_connect(nullptr, &m_screenNumber)) {}

    bool isConnected() const { return xcb_connection_has_error(m_connection.get()) == 0; }

    /// Those that the window manager knows.
    std::vector<xcb_window_t> clients() const {
        auto screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get()));
        for (int skipped = 0; skipped < m_screenNumber && screens.rem > 1; ++skipped) {
            xcb_screen_next(&screens);
        }
        return words(screens.data->root, "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, mostWindows);
    }

    bool isDesktop(xcb_window_t window) const {
        const auto types = words(window, "_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, mostTypes);
        return std::find(types.begin(), types.end(), atom("_NET_WM_WINDOW_TYPE_DESKTOP")) !=
               types.end();
    }

    std::uint32_t process(xcb_window_t window) const {
        const auto numbers = words(window, "_NET_WM_PID", XCB_ATOM_CARDINAL, 1);
        return numbers.empty() ? 0 : numbers.front();
    }

    QByteArray instance(xcb_window_t window) const {
        const auto reply = property(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, mostClassLongs);
        if (!reply || reply->format != 8) {
            return {};
        }
        const QByteArray both(static_cast<const char *>(xcb_get_property_value(reply.get())),
                              xcb_get_property_value_length(reply.get()));
        return both.left(both.indexOf('\0'));
    }

private:
    xcb_atom_t atom(std::string_view name) const {
        const OwnedReply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
            m_connection.get(),
            xcb_intern_atom(m_connection.get(), 0, static_cast<std::uint16_t>(name.size()),
                            name.data()),
            nullptr));
        return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    }

    OwnedReply<xcb_get_property_reply_t> property(xcb_window_t window, xcb_atom_t name,
                                                  xcb_atom_t type, std::uint32_t longs) const {
        return OwnedReply<xcb_get_property_reply_t>(xcb_get_property_reply(
            m_connection.get(),
            xcb_get_property(m_connection.get(), 0, window, name, type, 0, longs), nullptr));
    }

    std::vector<std::uint32_t> words(xcb_window_t window, std::string_view name, xcb_atom_t type,
                                     std::uint32_t most) const {
        const auto reply = property(window, atom(name), type, most);
        if (!reply || reply->format != 32) {
            return {};
        }
        const auto *first = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
        const int bytes = xcb_get_property_value_length(reply.get());
        return {first, first + static_cast<std::size_t>(bytes) / sizeof(std::uint32_t)};
    }

    int m_screenNumber = 0;
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
};

} // namespace

std::optional<DesktopLook> lookForDesktop(const QByteArray &instance) {
    const WindowLook look;
    if (!look.isConnected()) {
        return std::nullopt;
    }
    const auto clients = look.clients();
    const auto desktop = std::find_if(clients.begin(), clients.end(), [&](xcb_window_t window) {
        return look.instance(window) == instance && look.isDesktop(window);
    });
    const DesktopLook found =
        desktop == clients.end() ? DesktopLook{} : DesktopLook{true, look.process(*desktop)};
    return look.isConnected() ? std::optional(found) : std::nullopt;
}

} // namespace zeph
