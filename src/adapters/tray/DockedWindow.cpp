// SPDX-License-Identifier: MIT
#include "adapters/tray/DockedWindow.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11Properties.h"
#include "adapters/session/x11/X11Visual.h"
#include "adapters/tray/TrayPicture.h"

#include <QPainter>

#include <xcb/xcb_icccm.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

namespace zeph {

namespace {

constexpr int usualSide = 24;
constexpr int leastSide = 22; // of what a panel of the usual height has room for
constexpr std::uint8_t depthWithAlpha = 32;
constexpr std::string_view windowClass{"tavi\0com.tavi.Tavi\0", 19};

// Of the tray protocol and of the one for windows in others.
constexpr std::uint32_t requestDock = 0;
constexpr std::uint32_t embedVersion = 0;
constexpr std::uint32_t wantsToBeMapped = 1;

std::uint8_t depthOf(const X11Connection &connection, xcb_visualid_t visual) {
    auto depths = xcb_screen_allowed_depths_iterator(&connection.screen());
    for (; depths.rem > 0; xcb_depth_next(&depths)) {
        const auto *first = xcb_depth_visuals(depths.data);
        const bool isHere =
            std::any_of(first, first + xcb_depth_visuals_length(depths.data),
                        [visual](const auto &one) { return one.visual_id == visual; });
        if (isHere) {
            return depths.data->depth;
        }
    }
    return 0;
}

} // namespace

DockedWindow::DockedWindow(X11Connection &connection, xcb_window_t tray, const TrayFacts &facts,
                           const TrayTools &tools)
    : X11EventListener(connection),
      m_facts(facts),
      m_tools(tools),
      m_window(xcb_generate_id(connection.xcb())),
      m_context(xcb_generate_id(connection.xcb())),
      m_depth(connection.screen().root_depth),
      m_size(usualSide, usualSide) {
    readTray(tray);
    makeWindow();
    writeHints();
    askToDock(tray);
    xcb_flush(connection.xcb());
}

DockedWindow::~DockedWindow() {
    xcb_connection_t *const xcb = connection().xcb();
    xcb_free_gc(xcb, m_context);
    xcb_destroy_window(xcb, m_window);
    if (m_colours != XCB_NONE) {
        xcb_free_colormap(xcb, m_colours);
    }
    xcb_flush(xcb);
}

void DockedWindow::readTray(xcb_window_t tray) {
    const auto visual =
        numbersIn(readNow(connection(), tray, connection().intern("_NET_SYSTEM_TRAY_VISUAL"),
                          XCB_ATOM_VISUALID, 1)
                      .get());
    if (!visual.empty() && depthOf(connection(), visual.front()) == depthWithAlpha) {
        m_depth = depthWithAlpha;
    }
    const auto colours =
        numbersIn(readNow(connection(), tray, connection().intern("_NET_SYSTEM_TRAY_COLORS"),
                          XCB_ATOM_CARDINAL, 12)
                      .get());
    if (colours.size() >= 3) { // the foreground is the first
        const auto channel = [&](std::size_t index) {
            return static_cast<int>(std::min(colours.at(index), 0xFFFFU) >> 8U);
        };
        m_ink = QColor(channel(0), channel(1), channel(2));
    }
}

void DockedWindow::makeWindow() {
    xcb_connection_t *const xcb = connection().xcb();
    const std::uint32_t events = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                 XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;
    const auto width = static_cast<std::uint16_t>(m_size.width());
    const auto height = static_cast<std::uint16_t>(m_size.height());
    const auto withAlpha =
        m_depth == depthWithAlpha ? findVisual(connection(), depthWithAlpha) : std::nullopt;
    if (withAlpha) {
        m_colours = xcb_generate_id(xcb);
        xcb_create_colormap(xcb, XCB_COLORMAP_ALLOC_NONE, m_colours, connection().root(),
                            withAlpha->number);
        const std::array<std::uint32_t, 4> values{0, 0, events, m_colours};
        xcb_create_window(xcb, withAlpha->depth, m_window, connection().root(), 0, 0, width, height,
                          0, XCB_WINDOW_CLASS_INPUT_OUTPUT, withAlpha->number,
                          XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_EVENT_MASK |
                              XCB_CW_COLORMAP,
                          values.data());
    } else {
        m_depth = connection().screen().root_depth;
        const std::array<std::uint32_t, 2> values{XCB_BACK_PIXMAP_PARENT_RELATIVE, events};
        xcb_create_window(xcb, XCB_COPY_FROM_PARENT, m_window, connection().root(), 0, 0, width,
                          height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXMAP | XCB_CW_EVENT_MASK, values.data());
    }
    xcb_create_gc(xcb, m_context, m_window, 0, nullptr);
}

void DockedWindow::writeHints() {
    xcb_connection_t *const xcb = connection().xcb();
    const auto set = [&](xcb_atom_t property, xcb_atom_t type, std::uint8_t format, auto count,
                         const void *data) {
        xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, m_window, property, type, format,
                            static_cast<std::uint32_t>(count), data);
    };
    const QByteArray name = m_facts.description.toUtf8();
    set(XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, windowClass.size(), windowClass.data());
    set(XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, name.size(), name.constData());
    set(connection().atom(X11Atom::netWmName), connection().atom(X11Atom::utf8String), 8,
        name.size(), name.constData());
    const std::array<std::uint32_t, 2> embedding{embedVersion, wantsToBeMapped};
    const xcb_atom_t embed = connection().intern("_XEMBED_INFO");
    set(embed, embed, 32, embedding.size(), embedding.data());

    xcb_size_hints_t hints{};
    xcb_icccm_size_hints_set_min_size(&hints, leastSide, leastSide);
    xcb_icccm_size_hints_set_base_size(&hints, usualSide, usualSide);
    xcb_icccm_set_wm_normal_hints(xcb, m_window, &hints);
}

void DockedWindow::askToDock(xcb_window_t tray) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = tray;
    message.type = connection().intern("_NET_SYSTEM_TRAY_OPCODE");
    message.data.data32[0] = XCB_CURRENT_TIME;
    message.data.data32[1] = requestDock;
    message.data.data32[2] = m_window;
    const void *const wire = &message;
    xcb_send_event(connection().xcb(), 0, tray, XCB_EVENT_MASK_NO_EVENT,
                   static_cast<const char *>(wire));
}

void DockedWindow::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (kind == XCB_EXPOSE) {
        const auto &exposed = eventAs<xcb_expose_event_t>(event);
        if (exposed.window == m_window && exposed.count == 0) {
            draw();
        }
    } else if (kind == XCB_CONFIGURE_NOTIFY) {
        const auto &change = eventAs<xcb_configure_notify_event_t>(event);
        if (change.window == m_window) {
            m_size = QSize(change.width, change.height); // an exposure follows
        }
    } else if (kind == XCB_BUTTON_RELEASE) {
        const auto &release = eventAs<xcb_button_release_event_t>(event);
        if (release.event == m_window) {
            clicked(release);
        }
    }
}

/// Not at the press: while a button is held, the pointer belongs to this window, and a menu could
/// not take it.
void DockedWindow::clicked(const xcb_button_release_event_t &release) {
    const bool isInside = QRect(QPoint(0, 0), m_size).contains(release.event_x, release.event_y);
    const bool isLeftOrRight =
        release.detail == XCB_BUTTON_INDEX_1 || release.detail == XCB_BUTTON_INDEX_3;
    if (isInside && isLeftOrRight) {
        m_tools.popUpMenu(m_facts.menu, {release.root_x, release.root_y});
    }
}

void DockedWindow::draw() {
    if (m_isDrawing) {
        m_drawsAgain = true;
        return;
    }
    if (m_colours != XCB_NONE) {
        QImage ground(m_size, QImage::Format_ARGB32_Premultiplied);
        ground.fill(Qt::transparent);
        show(std::move(ground), m_ink ? inkedPicture(mask(), *m_ink) : seamedPicture(mask(), 1));
        return;
    }
    // What the tray paints behind us is to be seen beneath.
    m_isDrawing = true;
    xcb_clear_area(connection().xcb(), 0, m_window, 0, 0, 0, 0);
    const QSize size = m_size;
    const auto request = xcb_get_image(connection().xcb(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_window, 0,
                                       0, static_cast<std::uint16_t>(size.width()),
                                       static_cast<std::uint16_t>(size.height()), ~0U);
    connection().whenReplied(
        *this, {request.sequence}, [this, size](const X11Connection::Replies &replies) {
            m_isDrawing = false;
            const auto *reply = static_cast<const xcb_get_image_reply_t *>(replies.front().get());
            QImage ground(size, QImage::Format_RGB32);
            const auto bytes = static_cast<std::size_t>(ground.sizeInBytes());
            const bool fits = reply != nullptr &&
                              static_cast<std::size_t>(xcb_get_image_data_length(reply)) == bytes;
            if (fits) { // otherwise the window is off the screen
                std::memcpy(ground.bits(), xcb_get_image_data(reply), bytes);
                const QColor ink = m_ink.value_or(inkOn(ground));
                show(std::move(ground), inkedPicture(mask(), ink));
            }
            if (std::exchange(m_drawsAgain, false)) {
                draw();
            }
        });
}

void DockedWindow::show(QImage ground, const QImage &symbol) {
    QPainter painter(&ground);
    painter.drawImage((ground.width() - symbol.width()) / 2,
                      (ground.height() - symbol.height()) / 2, symbol);
    painter.end();
    xcb_put_image(connection().xcb(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_window, m_context,
                  static_cast<std::uint16_t>(ground.width()),
                  static_cast<std::uint16_t>(ground.height()), 0, 0, 0, m_depth,
                  static_cast<std::uint32_t>(ground.sizeInBytes()), ground.constBits());
    xcb_flush(connection().xcb());
}

/// With a twelfth of the side left free all around, as other symbols of trays have it.
QImage DockedWindow::mask() const {
    const int side = std::min(m_size.width(), m_size.height());
    const int margin = std::max(1, side / 12);
    return m_tools.drawSymbol(m_facts.symbol, std::max(1, side - 2 * margin));
}

} // namespace zeph
