// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11ModifierKeys.h"

#include "adapters/session/x11/X11Connection.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

// The ranges of the protocol's symbols that stand for modifiers.
constexpr bool isModifierSymbol(xcb_keysym_t symbol) {
    constexpr xcb_keysym_t shiftLeft = 0xFFE1;
    constexpr xcb_keysym_t hyperRight = 0xFFEE; // Control, the locks, Alt, Super lie in between
    constexpr xcb_keysym_t isoLock = 0xFE01;
    constexpr xcb_keysym_t isoLevel5Lock = 0xFE13; // AltGr and switches of the layout as well
    constexpr xcb_keysym_t modeSwitch = 0xFF7E;
    constexpr xcb_keysym_t numLock = 0xFF7F;
    return (symbol >= shiftLeft && symbol <= hyperRight) ||
           (symbol >= isoLock && symbol <= isoLevel5Lock) || symbol == modeSwitch ||
           symbol == numLock;
}

} // namespace

X11ModifierKeys::X11ModifierKeys(X11Connection &connection) : X11EventListener(connection) {
    const Question asked = ask();
    const X11Reply<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(connection.xcb(), asked.modifiers, nullptr));
    const X11Reply<xcb_get_keyboard_mapping_reply_t> symbols(
        xcb_get_keyboard_mapping_reply(connection.xcb(), asked.symbols, nullptr));
    adopt(modifiers.get(), symbols.get());
}

void X11ModifierKeys::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (kind == XCB_MAPPING_NOTIFY &&
        eventAs<xcb_mapping_notify_event_t>(event).request != XCB_MAPPING_POINTER) {
        follow();
    }
}

X11ModifierKeys::Question X11ModifierKeys::ask() const {
    xcb_connection_t *server = connection().xcb();
    const xcb_setup_t &setup = *xcb_get_setup(server);
    const auto count = static_cast<std::uint8_t>(setup.max_keycode - setup.min_keycode + 1);
    return {xcb_get_modifier_mapping(server),
            xcb_get_keyboard_mapping(server, setup.min_keycode, count)};
}

void X11ModifierKeys::follow() {
    // One change of a layout is told by many notices.
    if (std::exchange(m_isAsking, true)) {
        m_hasChangedSince = true;
        return;
    }
    const Question asked = ask();
    connection().whenReplied(
        *this, {asked.modifiers.sequence, asked.symbols.sequence},
        [this](const X11Connection::Replies &replies) {
            m_isAsking = false;
            adopt(static_cast<const xcb_get_modifier_mapping_reply_t *>(replies[0].get()),
                  static_cast<const xcb_get_keyboard_mapping_reply_t *>(replies[1].get()));
            if (std::exchange(m_hasChangedSince, false)) {
                follow();
            }
        });
}

void X11ModifierKeys::adopt(const xcb_get_modifier_mapping_reply_t *modifiers,
                            const xcb_get_keyboard_mapping_reply_t *symbols) {
    if (!modifiers || !symbols) {
        return;
    }
    m_codes.reset();
    const auto *mapped = xcb_get_modifier_mapping_keycodes(modifiers);
    std::for_each(mapped, mapped + xcb_get_modifier_mapping_keycodes_length(modifiers),
                  [this](xcb_keycode_t code) { m_codes.set(code); });
    // Many layouts leave AltGr out of that table; what it is called tells it all the same.
    const int width = symbols->keysyms_per_keycode;
    const auto *symbol = xcb_get_keyboard_mapping_keysyms(symbols);
    const int count = width > 0 ? xcb_get_keyboard_mapping_keysyms_length(symbols) / width : 0;
    const std::size_t first = xcb_get_setup(connection().xcb())->min_keycode;
    for (int key = 0; key < count; ++key, symbol += width) {
        if (isModifierSymbol(*symbol)) {
            m_codes.set(first + static_cast<std::size_t>(key));
        }
    }
    m_codes.reset(0); // what fills the table where there is no key
}

} // namespace zeph
