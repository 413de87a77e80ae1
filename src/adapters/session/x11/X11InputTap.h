// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11EventListener.h"
#include "adapters/session/x11/X11ModifierKeys.h"
#include "adapters/session/x11/X11PointerMotion.h"
#include "ports/InputEvents.h"

namespace zeph {

class Consent;
class Screens;
class X11KeyPresses;

/// The input of the session as counts and positions. Nothing is asked of the server while consent
/// is missing; the tap follows as it is withdrawn and given.
class X11InputTap : public InputEventTap, private X11EventListener {
public:
    using Handler = std::function<void(const InputEvent &)>;

    /// Disabled at first. `screens` turns pixels into points.
    X11InputTap(X11Connection &connection, const Screens &screens, Consent &consent,
                Handler handler);
    ~X11InputTap() override;

    void enable() override;

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void followConsent();
    void start();
    void stop();
    void selectEvents(bool motion);
    void tellButton(std::uint32_t button);
    void tellMotion(QPoint position, unsigned buttons);

    const Screens &m_screens;
    Consent &m_consent;
    Handler m_handler;
    bool m_isEnabled = false; // as far as its owner is concerned
    bool m_isListening = false;
    X11ModifierKeys m_modifiers;
    std::unique_ptr<X11KeyPresses> m_keys;
    X11PointerMotion m_motion;
    Subscription m_consentChanges;
};

} // namespace zeph
