// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11InputTap.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11KeyPresses.h"
#include "ports/Consent.h"
#include "ports/Screens.h"

#include <xcb/xinput.h>

#include <utility>

namespace zeph {

namespace {

constexpr std::uint32_t kLeftButton = 1;
constexpr std::uint32_t kRightButton = 3;

constexpr unsigned bitOf(std::uint32_t button) {
    return 1U << button;
}

constexpr unsigned kWheels = bitOf(4) | bitOf(5) | bitOf(6) | bitOf(7);

// The toolkit leaves a display's origin in device pixels and scales what lies within.
QPointF toPoints(const Screens &screens, QPoint position) {
    const auto all = screens.all();
    for (const Screen &screen : all) {
        if (screen.deviceFrame.contains(position)) {
            return screen.frame.topLeft() +
                   QPointF(position - screen.deviceFrame.topLeft()) / screen.scale;
        }
    }
    return position;
}

} // namespace

X11InputTap::X11InputTap(X11Connection &connection, const Screens &screens, Consent &consent,
                         Handler handler)
    : X11EventListener(connection),
      m_screens(screens),
      m_consent(consent),
      m_handler(std::move(handler)),
      m_modifiers(connection),
      m_motion(
          connection, [this](bool wanted) { selectEvents(wanted); },
          [this](QPoint position, unsigned buttons) { tellMotion(position, buttons); }),
      m_consentChanges(consent.subscribe([this] { followConsent(); })) {}

X11InputTap::~X11InputTap() {
    stop();
}

void X11InputTap::enable() {
    m_isEnabled = true;
    followConsent();
}

void X11InputTap::followConsent() {
    if (m_isEnabled && m_consent.isGranted()) {
        start();
    } else {
        stop();
    }
}

void X11InputTap::start() {
    if (std::exchange(m_isListening, true)) {
        return;
    }
    m_keys = X11KeyPresses::start(connection(), m_modifiers, [this] {
        if (m_isListening) {
            m_handler({InputEventKind::keyDown, {}});
        }
    });
    selectEvents(true);
}

void X11InputTap::stop() {
    if (!std::exchange(m_isListening, false)) {
        return;
    }
    m_motion.stop();
    if (m_keys) {
        m_keys->stop();
    }
    selectEvents(false);
}

void X11InputTap::selectEvents(bool motion) {
    struct {
        xcb_input_event_mask_t header;
        std::uint32_t events;
    } request{{XCB_INPUT_DEVICE_ALL_MASTER, 1}, 0};
    if (m_isListening) {
        // A server that does not record counts keys without their autorepeat.
        request.events =
            XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS |
            (motion ? static_cast<unsigned>(XCB_INPUT_XI_EVENT_MASK_RAW_MOTION) : 0U) |
            (m_keys ? 0U : static_cast<unsigned>(XCB_INPUT_XI_EVENT_MASK_RAW_KEY_PRESS));
    }
    xcb_input_xi_select_events(connection().xcb(), connection().root(), 1, &request.header);
    xcb_flush(connection().xcb());
}

void X11InputTap::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (kind != XCB_GE_GENERIC || !m_isListening) {
        return;
    }
    const auto *input = connection().extension(X11Extension::input);
    const auto &generic = eventAs<xcb_ge_generic_event_t>(event);
    if (!input || generic.extension != input->major_opcode) {
        return;
    }
    switch (generic.event_type) {
    case XCB_INPUT_RAW_KEY_PRESS:
        // Nothing else is asked of which key it was, and the connection wipes it.
        if (!m_modifiers.contains(eventAs<xcb_input_raw_key_press_event_t>(event).detail)) {
            m_handler({InputEventKind::keyDown, {}});
        }
        break;
    case XCB_INPUT_RAW_BUTTON_PRESS:
        tellButton(eventAs<xcb_input_raw_button_press_event_t>(event).detail);
        break;
    case XCB_INPUT_RAW_MOTION:
        m_motion.noteMotion(eventAs<xcb_input_raw_motion_event_t>(event).deviceid);
        break;
    default:
        break;
    }
}

void X11InputTap::tellButton(std::uint32_t button) {
    // Wheels are buttons 4 to 7 here; neither they nor the middle button count as clicks.
    if (button == kLeftButton) {
        m_handler({InputEventKind::leftMouseDown, {}});
    } else if (button == kRightButton) {
        m_handler({InputEventKind::rightMouseDown, {}});
    }
}

void X11InputTap::tellMotion(QPoint position, unsigned buttons) {
    if (!m_isListening) {
        return; // the answer to an earlier question
    }
    InputEventKind kind = InputEventKind::mouseMoved;
    if ((buttons & bitOf(kLeftButton)) != 0) {
        kind = InputEventKind::leftMouseDragged;
    } else if ((buttons & bitOf(kRightButton)) != 0) {
        kind = InputEventKind::rightMouseDragged;
    } else if ((buttons & ~kWheels) != 0) {
        return; // a drag with another button is no travel
    }
    m_handler({kind, toPoints(m_screens, position)});
}

} // namespace zeph
