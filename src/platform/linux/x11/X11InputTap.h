// SPDX-License-Identifier: MIT
#pragma once

#include "platform/InputEvents.h"
#include "platform/linux/x11/X11EventListener.h"
#include "platform/linux/x11/X11PointerMotion.h"

namespace zeph {

class Screens;
class X11KeyPresses;

/// The input of the session as counts and positions. Selects nothing while consent is missing.
class X11InputTap : public InputEventTap, private X11EventListener {
public:
    using Handler = std::function<void(const InputEvent &)>;

    /// Disabled at first. `screens` turns pixels into points.
    X11InputTap(X11Connection &connection, const Screens &screens, std::function<bool()> isTrusted,
                Handler handler);
    ~X11InputTap() override;

    void enable() override;

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void disable();
    bool mayTell();
    void selectEvents(bool motion);
    void tellButton(std::uint32_t button);
    void tellMotion(QPoint position, unsigned buttons);

    const Screens &m_screens;
    std::function<bool()> m_isTrusted;
    Handler m_handler;
    bool m_isEnabled = false;
    std::unique_ptr<X11KeyPresses> m_keys;
    X11PointerMotion m_motion;
};

} // namespace zeph
