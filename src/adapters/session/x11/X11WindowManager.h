// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11EventListener.h"
#include "base/ChangePublisher.h"

#include <QString>

#include <functional>
#include <optional>

namespace zeph {

/// The window manager of the screen, by what it says of itself on the root; followed without
/// polling, also when it is killed.
class X11WindowManager : private X11EventListener {
public:
    /// What a manager says of itself.
    struct Facts {
        xcb_window_t window = XCB_WINDOW_NONE; ///< its own, gone with it
        QString name = {};
        bool knowsDesktopType = false; ///< keeps windows of the desktop type below all others
        bool knowsRestacking = false;  ///< changes the order of windows when it is asked
        bool tellsWorkArea = false;    ///< what panels leave

        bool operator==(const Facts &) const = default;
    };

    /// Asks for the present state without waiting for it.
    explicit X11WindowManager(X11Connection &connection);

    /// Absent where none runs that tells of itself.
    const std::optional<Facts> &facts() const { return m_facts; }

    /// Whether the server has answered by now, so that absent facts mean that there is none.
    bool isKnown() const { return m_isKnown; }

    /// Calls `handler` whenever `facts` changed, and once they are known.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    bool isNews(std::uint8_t kind, const xcb_generic_event_t &event) const;
    void read();
    void readWindow(Facts facts);
    void take(std::optional<Facts> facts);

    std::optional<Facts> m_facts;
    xcb_window_t m_looked = XCB_WINDOW_NONE; // at which one it was looked last
    ChangePublisher m_changes;
    bool m_isKnown = false;
    bool m_isReading = false;
    bool m_readsAgain = false;
};

} // namespace zeph
