// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/identity/ScreenIdentity.h"
#include "adapters/session/x11/X11EventListener.h"
#include "adapters/session/x11/X11Reply.h"

#include <QByteArray>
#include <QRect>

#include <functional>
#include <vector>

namespace zeph {

/// A part of the root window that a display shows.
struct X11Monitor {
    ScreenFacts facts;
    QRect geometry; ///< in device pixels

    bool operator==(const X11Monitor &) const = default;
};

/// The monitors of a display and the X resources, followed without polling. A server that does not
/// know monitors has one, as large as its root window.
class X11Monitors : private X11EventListener {
public:
    /// Knows the monitors that are there; a few round trips.
    explicit X11Monitors(X11Connection &connection);

    /// The primary one first, without mirrors: those that lie within another.
    const std::vector<X11Monitor> &all() const { return m_monitors; }
    const QByteArray &resources() const { return m_resources; }

    /// Called when either has changed.
    void setChangeHandler(std::function<void()> handler) { m_handler = std::move(handler); }

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    bool isNews(std::uint8_t kind, const xcb_generic_event_t &event) const;
    void read();
    void readFacts(const X11AnyReply &reply, const QByteArray &resources);
    void take(std::vector<X11Monitor> monitors, const QByteArray &resources);

    std::vector<X11Monitor> m_monitors;
    QByteArray m_resources;
    std::function<void()> m_handler;
    int m_firstEvent = -1; // of RandR; negative where the server knows no monitors
    bool m_isReading = false;
    bool m_readsAgain = false;
};

} // namespace zeph
