// SPDX-License-Identifier: MIT
#pragma once

#include "platform/InputEvents.h"
#include "platform/linux/x11/X11EventListener.h"
#include "platform/linux/x11/X11ModifierKeys.h"
#include "platform/linux/x11/X11PointerMotion.h"

namespace zeph {

class RunLoop;
class RunLoopTimer;
class Screens;
class X11KeyPresses;

/// The input of the session as counts and positions. Selects nothing while consent is missing.
/// When consent is withdrawn meanwhile it disables itself, and tells so once consent is back.
class X11InputTap : public InputEventTap, private X11EventListener {
public:
    using Handler = std::function<void(const InputEvent &)>;

    /// Disabled at first. `screens` turns pixels into points.
    X11InputTap(X11Connection &connection, const Screens &screens, RunLoop &runLoop,
                std::function<bool()> isTrusted, Handler handler);
    ~X11InputTap() override;

    void enable() override;

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void disable();
    bool mayTell();
    void lookForConsent();
    void selectEvents(bool motion);
    void tellButton(std::uint32_t button);
    void tellMotion(QPoint position, unsigned buttons);

    const Screens &m_screens;
    RunLoop &m_runLoop;
    std::function<bool()> m_isTrusted;
    Handler m_handler;
    bool m_isEnabled = false;
    X11ModifierKeys m_modifiers;
    std::unique_ptr<X11KeyPresses> m_keys;
    X11PointerMotion m_motion;
    std::unique_ptr<RunLoopTimer> m_consentTimer; // while consent is withdrawn
};

} // namespace zeph
