// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11EventListener.h"

#include <bitset>

namespace zeph {

/// The keys that only change what others mean: Shift, Control, AltGr, the locks. Follows changes
/// of the keyboard's layout without ever waiting for the server.
class X11ModifierKeys : private X11EventListener {
public:
    /// Reads the present layout, one round trip.
    explicit X11ModifierKeys(X11Connection &connection);

    /// Whether the key with this code is one of them. Keeps nothing of the question.
    bool contains(std::uint32_t code) const { return code < m_codes.size() && m_codes[code]; }

private:
    struct Question {
        xcb_get_modifier_mapping_cookie_t modifiers;
        xcb_get_keyboard_mapping_cookie_t symbols;
    };

    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    Question ask() const;
    void follow();
    void adopt(const xcb_get_modifier_mapping_reply_t *modifiers,
               const xcb_get_keyboard_mapping_reply_t *symbols);

    std::bitset<256> m_codes;
    bool m_isAsking = false;
    bool m_hasChangedSince = false; // while an answer was on its way
};

} // namespace zeph
