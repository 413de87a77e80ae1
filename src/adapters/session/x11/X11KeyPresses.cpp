// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11KeyPresses.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11ModifierKeys.h"

#include <xcb/xcbext.h>

#include <cstring>
#include <utility>

namespace zeph {

namespace {

constexpr std::size_t kEventBytes = 32;
constexpr std::size_t kKeyCode = 1;     // where it lies in an event
constexpr std::uint8_t kFromServer = 0; // the category of recorded input

xcb_record_context_t createContext(X11Connection &control) {
    xcb_record_range_t range{};
    range.device_events.first = XCB_KEY_PRESS;
    range.device_events.last = XCB_KEY_PRESS;
    const xcb_record_client_spec_t clients = XCB_RECORD_CS_ALL_CLIENTS;
    const xcb_record_context_t context = xcb_generate_id(control.xcb());
    const X11Reply<xcb_generic_error_t> refusal(xcb_request_check(
        control.xcb(),
        xcb_record_create_context_checked(control.xcb(), context, 0, 1, 1, &clients, &range)));
    return refusal ? xcb_record_context_t{XCB_NONE} : context;
}

// Counts the events of one chunk but those of modifiers, and wipes the chunk.
int countAndWipe(xcb_record_enable_context_reply_t &chunk, const X11ModifierKeys &modifiers) {
    auto *bytes = xcb_record_enable_context_data(&chunk);
    const auto size = static_cast<std::size_t>(xcb_record_enable_context_data_length(&chunk));
    int presses = 0;
    for (std::size_t event = 0; event + kEventBytes <= size; event += kEventBytes) {
        presses += modifiers.contains(bytes[event + kKeyCode]) ? 0 : 1;
    }
    explicit_bzero(bytes, size);
    return chunk.category == kFromServer ? presses : 0;
}

} // namespace

std::unique_ptr<X11KeyPresses> X11KeyPresses::start(X11Connection &control,
                                                    const X11ModifierKeys &modifiers,
                                                    std::function<void()> handler) {
    if (!control.extension(X11Extension::record)) {
        return nullptr;
    }
    Handle data(xcb_connect(control.display().isEmpty() ? nullptr : control.display().constData(),
                            nullptr));
    if (xcb_connection_has_error(data.get()) != 0) {
        return nullptr;
    }
    // The server refuses every other request of the extension before this one.
    const auto version = xcb_record_query_version(control.xcb(), 1, 13);
    xcb_discard_reply(control.xcb(), version.sequence);
    const xcb_record_context_t context = createContext(control);
    if (context == XCB_NONE) {
        return nullptr;
    }
    return std::unique_ptr<X11KeyPresses>(
        new X11KeyPresses(control, modifiers, std::move(data), context, std::move(handler)));
}

X11KeyPresses::X11KeyPresses(X11Connection &control, const X11ModifierKeys &modifiers, Handle data,
                             xcb_record_context_t context, std::function<void()> handler)
    : m_control(control),
      m_modifiers(modifiers),
      m_data(std::move(data)),
      m_context(context),
      m_stream(xcb_record_enable_context(m_data.get(), context).sequence),
      m_handler(std::move(handler)),
      m_notifier(xcb_get_file_descriptor(m_data.get()), QSocketNotifier::Read) {
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier, [this] { read(); });
    xcb_flush(m_data.get());
}

X11KeyPresses::~X11KeyPresses() {
    stop();
    xcb_record_free_context(m_control.xcb(), m_context);
    xcb_flush(m_control.xcb());
}

void X11KeyPresses::stop() {
    m_notifier.setEnabled(false);
    xcb_record_disable_context(m_control.xcb(), m_context);
    xcb_flush(m_control.xcb());
}

void X11KeyPresses::read() {
    // Looking for an event, of which there are none, is what makes xcb read the replies.
    const X11Reply<xcb_generic_event_t> unexpected(xcb_poll_for_event(m_data.get()));
    int presses = 0;
    void *reply = nullptr;
    xcb_generic_error_t *error = nullptr;
    while (xcb_poll_for_reply(m_data.get(), m_stream, &reply, &error) != 0) {
        const X11Reply<xcb_generic_error_t> refusal(error);
        const X11Reply<xcb_record_enable_context_reply_t> chunk(
            static_cast<xcb_record_enable_context_reply_t *>(reply));
        if (!chunk) {
            m_notifier.setEnabled(false); // the stream has ended, and the server perhaps with it
            break;
        }
        presses += countAndWipe(*chunk, m_modifiers);
    }
    for (; presses > 0; --presses) {
        m_handler();
    }
}

} // namespace zeph
