// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11DesktopHints.h"

#include "adapters/session/x11/X11Connection.h"

#include <unistd.h>
#include <xcb/shape.h>
#include <xcb/xcb_icccm.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace zeph {

namespace {

constexpr std::uint32_t kOnAllDesktops = 0xFFFFFFFF;
constexpr std::uint32_t kFromApplication = 1;

// "tavi" as the instance, the application id as the class, each with its terminating zero.
constexpr std::string_view kWindowClass{"tavi\0com.tavi.Tavi\0", 19};
constexpr std::string_view kTitle = "Tavi";

template <typename Values>
void set32(X11Connection &connection, xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
           const Values &values) {
    xcb_change_property(connection.xcb(), XCB_PROP_MODE_REPLACE, window, property, type, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
}

void setText(X11Connection &connection, xcb_window_t window, xcb_atom_t property, xcb_atom_t type,
             std::string_view text) {
    xcb_change_property(connection.xcb(), XCB_PROP_MODE_REPLACE, window, property, type, 8,
                        static_cast<std::uint32_t>(text.size()), text.data());
}

// Sends the root window what only a window manager gets to see.
void sendToManager(X11Connection &connection, const void *event) {
    xcb_send_event(connection.xcb(), 0, connection.root(),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   static_cast<const char *>(event));
}

void askManager(X11Connection &connection, xcb_window_t window, xcb_atom_t type,
                const std::array<std::uint32_t, 5> &words) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = type;
    std::copy(words.begin(), words.end(), std::begin(message.data.data32));
    sendToManager(connection, &message);
}

void writeProcess(X11Connection &connection, xcb_window_t window) {
    std::array<char, 256> host{};
    if (gethostname(host.data(), host.size() - 1) != 0) {
        return;
    }
    setText(connection, window, connection.atom(X11Atom::wmClientMachine), XCB_ATOM_STRING,
            host.data());
    set32(connection, window, connection.atom(X11Atom::netWmPid), XCB_ATOM_CARDINAL,
          std::array{static_cast<std::uint32_t>(getpid())});
}

} // namespace

void writeDesktopHints(X11Connection &connection, xcb_window_t window) {
    setText(connection, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, kWindowClass);
    setText(connection, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, kTitle);
    setText(connection, window, connection.atom(X11Atom::netWmName),
            connection.atom(X11Atom::utf8String), kTitle);
    writeProcess(connection, window);
    set32(connection, window, connection.atom(X11Atom::netWmWindowType), XCB_ATOM_ATOM,
          std::array{connection.atom(X11Atom::netWmWindowTypeDesktop)});

    xcb_icccm_wm_hints_t hints{};
    xcb_icccm_wm_hints_set_input(&hints, 0);
    xcb_icccm_wm_hints_set_normal(&hints);
    xcb_icccm_set_wm_hints(connection.xcb(), window, &hints);
    // A user time of zero keeps a new window from being focused.
    set32(connection, window, connection.atom(X11Atom::netWmUserTime), XCB_ATOM_CARDINAL,
          std::array{0U});

    constexpr std::uint32_t kDecorationsGiven = 2;
    const xcb_atom_t motif = connection.atom(X11Atom::motifWmHints);
    set32(connection, window, motif, motif, std::array{kDecorationsGiven, 0U, 0U, 0U, 0U});
}

void writeGeometryHints(X11Connection &connection, xcb_window_t window, const QRect &geometry) {
    xcb_size_hints_t hints{};
    xcb_icccm_size_hints_set_position(&hints, 1, geometry.x(), geometry.y());
    xcb_icccm_size_hints_set_size(&hints, 1, geometry.width(), geometry.height());
    xcb_icccm_set_wm_normal_hints(connection.xcb(), window, &hints);
}

void writeDesktopState(X11Connection &connection, xcb_window_t window) {
    set32(connection, window, connection.atom(X11Atom::netWmState), XCB_ATOM_ATOM,
          std::array{connection.atom(X11Atom::netWmStateBelow),
                     connection.atom(X11Atom::netWmStateSticky),
                     connection.atom(X11Atom::netWmStateSkipTaskbar),
                     connection.atom(X11Atom::netWmStateSkipPager)});
    set32(connection, window, connection.atom(X11Atom::netWmDesktop), XCB_ATOM_CARDINAL,
          std::array{kOnAllDesktops});
}

void refuseInput(X11Connection &connection, xcb_window_t window) {
    if (connection.extension(X11Extension::shape)) {
        xcb_shape_rectangles(connection.xcb(), XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, 0, window, 0,
                             0, 0, nullptr);
    }
}

void askForDesktopState(X11Connection &connection, xcb_window_t window) {
    constexpr std::uint32_t kAdd = 1;
    const xcb_atom_t state = connection.atom(X11Atom::netWmState);
    askManager(connection, window, state,
               {kAdd, connection.atom(X11Atom::netWmStateBelow),
                connection.atom(X11Atom::netWmStateSticky), kFromApplication, 0});
    askManager(connection, window, state,
               {kAdd, connection.atom(X11Atom::netWmStateSkipTaskbar),
                connection.atom(X11Atom::netWmStateSkipPager), kFromApplication, 0});
    askManager(connection, window, connection.atom(X11Atom::netWmDesktop),
               {kOnAllDesktops, kFromApplication, 0, 0, 0});
}

void askForNoAttention(X11Connection &connection, xcb_window_t window) {
    constexpr std::uint32_t kRemove = 0;
    askManager(
        connection, window, connection.atom(X11Atom::netWmState),
        {kRemove, connection.atom(X11Atom::netWmStateDemandsAttention), 0, kFromApplication, 0});
}

void askToRestack(X11Connection &connection, xcb_window_t window, xcb_stack_mode_t mode) {
    constexpr std::uint32_t kFromPager = 2; // ordinary applications are refused by some managers
    askManager(connection, window, connection.atom(X11Atom::netRestackWindow),
               {kFromPager, XCB_WINDOW_NONE, static_cast<std::uint32_t>(mode), 0, 0});
}

void lower(X11Connection &connection, xcb_window_t window) {
    const std::uint32_t below = XCB_STACK_MODE_BELOW;
    xcb_configure_window(connection.xcb(), window, XCB_CONFIG_WINDOW_STACK_MODE, &below);
}

void stackAbove(X11Connection &connection, xcb_window_t window, xcb_window_t sibling) {
    const std::array values{sibling, std::uint32_t{XCB_STACK_MODE_ABOVE}};
    xcb_configure_window(connection.xcb(), window,
                         XCB_CONFIG_WINDOW_SIBLING | XCB_CONFIG_WINDOW_STACK_MODE, values.data());
}

void withdraw(X11Connection &connection, xcb_window_t window) {
    xcb_unmap_window(connection.xcb(), window);
    union {
        xcb_unmap_notify_event_t notify;
        std::array<char, 32> wire; // what is sent is always 32 bytes
    } event{};
    event.notify.response_type = XCB_UNMAP_NOTIFY;
    event.notify.event = connection.root();
    event.notify.window = window;
    sendToManager(connection, &event);
}

} // namespace zeph
