// SPDX-License-Identifier: MIT
#include "support/XTestClient.h"

#include "support/WaitUntil.h"

#include <array>
#include <cstdlib>
#include <cstring>

namespace zeph {

namespace {

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <typename T>
Reply<T> own(T *reply) {
    return {reply, &std::free};
}

} // namespace

XTestClient::XTestClient(const QByteArray &display)
    : m_connection(xcb_connect(display.constData(), nullptr)) {
    if (isConnected()) {
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data;
    }
}

XTestClient::~XTestClient() = default;

bool XTestClient::isConnected() const {
    return xcb_connection_has_error(m_connection.get()) == 0;
}

xcb_window_t XTestClient::show(const Window &window) {
    auto *c = m_connection.get();
    const xcb_window_t id = xcb_generate_id(c);
    const std::array<std::uint32_t, 3> values{
        window.colour, window.overridesRedirect ? 1U : 0U,
        XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_FOCUS_CHANGE | XCB_EVENT_MASK_EXPOSURE |
            XCB_EVENT_MASK_KEY_PRESS};
    xcb_create_window(
        c, XCB_COPY_FROM_PARENT, id, m_screen->root, static_cast<std::int16_t>(window.geometry.x()),
        static_cast<std::int16_t>(window.geometry.y()),
        static_cast<std::uint16_t>(window.geometry.width()),
        static_cast<std::uint16_t>(window.geometry.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
        m_screen->root_visual, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK,
        values.data());
    const auto set = [&](const QByteArray &property, xcb_atom_t type, std::uint8_t format,
                         std::uint32_t count, const void *data) {
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, id, atom(property), type, format, count,
                            data);
    };
    const auto setText = [&](const QByteArray &property, const char *type,
                             const QByteArray &value) {
        if (!value.isEmpty()) {
            set(property, atom(type), 8, static_cast<std::uint32_t>(value.size()), value.data());
        }
    };
    if (!window.type.isEmpty()) {
        const xcb_atom_t type = atom(window.type);
        set("_NET_WM_WINDOW_TYPE", XCB_ATOM_ATOM, 32, 1, &type);
    }
    if (!window.instance.isEmpty() || !window.name.isEmpty()) {
        setText("WM_CLASS", "STRING", window.instance + '\0' + window.name + '\0');
    }
    setText("_GTK_APPLICATION_ID", "UTF8_STRING", window.gtkApplicationId);
    setText("_KDE_NET_WM_DESKTOP_FILE", "UTF8_STRING", window.kdeDesktopFile);
    if (window.process != 0) {
        set("_NET_WM_PID", XCB_ATOM_CARDINAL, 32, 1, &window.process);
    }
    // Flags for a position and a size given by the program's user.
    const std::array<std::int32_t, 18> hints{3, window.geometry.x(), window.geometry.y(),
                                             window.geometry.width(), window.geometry.height()};
    set("WM_NORMAL_HINTS", XCB_ATOM_WM_SIZE_HINTS, 32, 18, hints.data());
    xcb_map_window(c, id);
    xcb_flush(c);
    waitUntil([&] {
        drainEvents();
        return m_visible.contains(id) && isViewable(id);
    });
    return id;
}

void XTestClient::destroy(xcb_window_t window) {
    xcb_destroy_window(m_connection.get(), window);
    xcb_flush(m_connection.get());
}

void XTestClient::setNumbers(xcb_window_t window, const QByteArray &property,
                             const QList<std::uint32_t> &values) {
    setIds(window, property, XCB_ATOM_CARDINAL, values);
}

void XTestClient::setIds(xcb_window_t window, const QByteArray &property, xcb_atom_t type,
                         const QList<std::uint32_t> &ids) {
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, atom(property), type, 32,
                        static_cast<std::uint32_t>(ids.size()), ids.constData());
    xcb_flush(m_connection.get());
}

xcb_pixmap_t XTestClient::makePixmap(QSize size, std::uint8_t depth) {
    const xcb_pixmap_t pixmap = xcb_generate_id(m_connection.get());
    xcb_create_pixmap(m_connection.get(), depth, pixmap, m_screen->root,
                      static_cast<std::uint16_t>(size.width()),
                      static_cast<std::uint16_t>(size.height()));
    xcb_flush(m_connection.get());
    return pixmap;
}

void XTestClient::freePixmap(xcb_pixmap_t pixmap) {
    xcb_free_pixmap(m_connection.get(), pixmap);
    xcb_flush(m_connection.get());
}

void XTestClient::setText(xcb_window_t window, const QByteArray &property, const QByteArray &text) {
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, window, atom(property),
                        atom("UTF8_STRING"), 8, static_cast<std::uint32_t>(text.size()),
                        text.constData());
    xcb_flush(m_connection.get());
}

void XTestClient::resize(xcb_window_t window, QSize size) {
    const std::array<std::uint32_t, 2> extent{static_cast<std::uint32_t>(size.width()),
                                              static_cast<std::uint32_t>(size.height())};
    xcb_configure_window(m_connection.get(), window,
                         XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT, extent.data());
    xcb_flush(m_connection.get());
}

void XTestClient::raise(xcb_window_t window) {
    const std::uint32_t above = XCB_STACK_MODE_ABOVE;
    xcb_configure_window(m_connection.get(), window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    xcb_flush(m_connection.get());
}

void XTestClient::activate(xcb_window_t window) {
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = window;
    message.type = atom("_NET_ACTIVE_WINDOW");
    message.data.data32[0] = 2; // as a pager would ask
    xcb_send_event(m_connection.get(), 0, m_screen->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char *>(&message));
    xcb_flush(m_connection.get());
}

int XTestClient::takeClicks(xcb_window_t window) {
    drainEvents();
    return static_cast<int>(m_clicks.removeAll(window));
}

void XTestClient::watchFocus(xcb_window_t window) {
    const std::uint32_t mask = XCB_EVENT_MASK_FOCUS_CHANGE;
    xcb_change_window_attributes(m_connection.get(), window, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(m_connection.get());
}

int XTestClient::focusCount(xcb_window_t window) {
    drainEvents();
    return static_cast<int>(m_focused.count(window));
}

void XTestClient::drainEvents() {
    // A round trip: whatever the server sent before its answer has arrived then.
    own(xcb_get_input_focus_reply(m_connection.get(), xcb_get_input_focus(m_connection.get()),
                                  nullptr));
    while (const auto event = own(xcb_poll_for_event(m_connection.get()))) {
        switch (event->response_type & 0x7F) {
        case XCB_BUTTON_PRESS:
            m_clicks.append(reinterpret_cast<xcb_button_press_event_t &>(*event).event);
            break;
        case XCB_FOCUS_IN:
            m_focused.append(reinterpret_cast<xcb_focus_in_event_t &>(*event).event);
            break;
        case XCB_EXPOSE:
            m_visible.append(reinterpret_cast<xcb_expose_event_t &>(*event).window);
            break;
        default:
            break;
        }
    }
}

void XTestClient::setAutoRepeat(bool repeats) {
    const std::uint32_t mode = repeats ? XCB_AUTO_REPEAT_MODE_ON : XCB_AUTO_REPEAT_MODE_OFF;
    xcb_change_keyboard_control(m_connection.get(), XCB_KB_AUTO_REPEAT_MODE, &mode);
    focus(); // the server has done it when it answers
}

void XTestClient::setThirdModifier(const QList<xcb_keycode_t> &keys) {
    auto *c = m_connection.get();
    const auto mapping =
        own(xcb_get_modifier_mapping_reply(c, xcb_get_modifier_mapping(c), nullptr));
    const auto width = static_cast<qsizetype>(mapping->keycodes_per_modifier);
    auto *codes = xcb_get_modifier_mapping_keycodes(mapping.get());
    for (qsizetype i = 0; i < width; ++i) {
        codes[XCB_MAP_INDEX_3 * width + i] = i < keys.size() ? keys[i] : xcb_keycode_t{0};
    }
    own(xcb_set_modifier_mapping_reply(
        c, xcb_set_modifier_mapping(c, mapping->keycodes_per_modifier, codes), nullptr));
}

xcb_window_t XTestClient::root() const {
    return m_screen->root;
}

xcb_atom_t XTestClient::atom(const QByteArray &name) const {
    const auto reply = own(xcb_intern_atom_reply(
        m_connection.get(),
        xcb_intern_atom(m_connection.get(), 0, static_cast<std::uint16_t>(name.size()),
                        name.constData()),
        nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

QList<std::uint32_t> XTestClient::numbers(xcb_window_t window, const QByteArray &property) const {
    const auto reply = own(xcb_get_property_reply(
        m_connection.get(),
        xcb_get_property(m_connection.get(), 0, window, atom(property), XCB_ATOM_ANY, 0, 4096),
        nullptr));
    if (!reply || reply->format != 32) {
        return {};
    }
    const auto *first = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

QByteArrayList XTestClient::atomNames(xcb_window_t window, const QByteArray &property) const {
    QByteArrayList names;
    for (const std::uint32_t number : numbers(window, property)) {
        const auto reply = own(xcb_get_atom_name_reply(
            m_connection.get(), xcb_get_atom_name(m_connection.get(), number), nullptr));
        if (reply) {
            names.append(
                {xcb_get_atom_name_name(reply.get()), xcb_get_atom_name_name_length(reply.get())});
        }
    }
    return names;
}

QByteArray XTestClient::text(xcb_window_t window, const QByteArray &property) const {
    const auto reply = own(xcb_get_property_reply(
        m_connection.get(),
        xcb_get_property(m_connection.get(), 0, window, atom(property), XCB_ATOM_ANY, 0, 4096),
        nullptr));
    return reply && reply->format == 8
               ? QByteArray(static_cast<const char *>(xcb_get_property_value(reply.get())),
                            static_cast<qsizetype>(reply->value_len))
               : QByteArray();
}

QList<xcb_window_t> XTestClient::findAll(const QByteArray &title) const {
    QList<xcb_window_t> found;
    QList<xcb_window_t> open{m_screen->root};
    while (!open.isEmpty()) {
        const xcb_window_t window = open.takeFirst();
        if (text(window, "WM_NAME") == title) {
            found.append(window);
        }
        const auto tree = own(xcb_query_tree_reply(
            m_connection.get(), xcb_query_tree(m_connection.get(), window), nullptr));
        if (tree) {
            const auto *first = xcb_query_tree_children(tree.get());
            open += QList<xcb_window_t>(first, first + tree->children_len);
        }
    }
    return found;
}

xcb_window_t XTestClient::find(const QByteArray &title) const {
    const auto all = findAll(title);
    return all.isEmpty() ? xcb_window_t{XCB_WINDOW_NONE} : all.first();
}

QRect XTestClient::geometry(xcb_window_t window) const {
    auto *c = m_connection.get();
    const auto size = own(xcb_get_geometry_reply(c, xcb_get_geometry(c, window), nullptr));
    const auto place = own(xcb_translate_coordinates_reply(
        c, xcb_translate_coordinates(c, window, m_screen->root, 0, 0), nullptr));
    return size && place ? QRect(place->dst_x, place->dst_y, size->width, size->height) : QRect();
}

int XTestClient::depth(xcb_window_t window) const {
    const auto reply = own(xcb_get_geometry_reply(
        m_connection.get(), xcb_get_geometry(m_connection.get(), window), nullptr));
    return reply ? reply->depth : 0;
}

void XTestClient::killOwner(xcb_drawable_t drawable) {
    const auto request = xcb_kill_client_checked(m_connection.get(), drawable);
    own(xcb_request_check(m_connection.get(), request));
}

QSize XTestClient::size(xcb_drawable_t drawable) const {
    const auto reply = own(xcb_get_geometry_reply(
        m_connection.get(), xcb_get_geometry(m_connection.get(), drawable), nullptr));
    return reply ? QSize(reply->width, reply->height) : QSize();
}

std::optional<std::uint32_t> XTestClient::pixelOf(xcb_pixmap_t pixmap, QPoint position) const {
    const auto reply = own(xcb_get_image_reply(
        m_connection.get(),
        xcb_get_image(m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap,
                      static_cast<std::int16_t>(position.x()),
                      static_cast<std::int16_t>(position.y()), 1, 1, 0xFFFFFFFF),
        nullptr));
    if (!reply) {
        return std::nullopt;
    }
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, xcb_get_image_data(reply.get()), sizeof pixel);
    return pixel;
}

bool XTestClient::isViewable(xcb_window_t window) const {
    const auto reply = own(xcb_get_window_attributes_reply(
        m_connection.get(), xcb_get_window_attributes(m_connection.get(), window), nullptr));
    return reply && reply->map_state == XCB_MAP_STATE_VIEWABLE;
}

xcb_window_t XTestClient::focus() const {
    const auto reply = own(xcb_get_input_focus_reply(
        m_connection.get(), xcb_get_input_focus(m_connection.get()), nullptr));
    return reply ? reply->focus : xcb_window_t{XCB_WINDOW_NONE};
}

QList<xcb_window_t> XTestClient::stacking() const {
    const auto tree = own(xcb_query_tree_reply(
        m_connection.get(), xcb_query_tree(m_connection.get(), m_screen->root), nullptr));
    const auto *first = xcb_query_tree_children(tree.get());
    return {first, first + tree->children_len};
}

xcb_window_t XTestClient::frameOf(xcb_window_t window) const {
    for (;;) {
        const auto tree = own(xcb_query_tree_reply(
            m_connection.get(), xcb_query_tree(m_connection.get(), window), nullptr));
        if (!tree || tree->parent == m_screen->root || tree->parent == XCB_WINDOW_NONE) {
            return window;
        }
        window = tree->parent;
    }
}

QImage XTestClient::screenshot(const QRect &area) const {
    const auto reply = own(xcb_get_image_reply(
        m_connection.get(),
        xcb_get_image(m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, m_screen->root,
                      static_cast<std::int16_t>(area.x()), static_cast<std::int16_t>(area.y()),
                      static_cast<std::uint16_t>(area.width()),
                      static_cast<std::uint16_t>(area.height()), 0xFFFFFFFF),
        nullptr));
    if (!reply) {
        return {};
    }
    QImage image(area.size(), QImage::Format_RGB32);
    std::memcpy(image.bits(), xcb_get_image_data(reply.get()),
                static_cast<std::size_t>(image.sizeInBytes()));
    return image;
}

QRgb XTestClient::pixel(QPoint position) const {
    const QImage image = screenshot({position, QSize(1, 1)});
    return image.isNull() ? 0 : image.pixel(0, 0) & 0xFFFFFF;
}

} // namespace zeph
