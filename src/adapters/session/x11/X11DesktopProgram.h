// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/choose/DesktopProgram.h"
#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11EventListener.h"
#include "base/ChangePublisher.h"

#include <QSize>

#include <functional>
#include <optional>
#include <vector>

namespace zeph {

/// The program that draws the icons of the desktop, followed without polling. Asks the windows of
/// its desktop for the notices about their structure: nobody else of this connection may ask those
/// windows for other events, as the last one who asks is the only one who gets any.
class X11DesktopProgram : private X11EventListener {
public:
    /// A desktop program that runs, with what belongs to its desktop.
    struct Found {
        DesktopProgram kind = DesktopProgram::xfdesktop;
        std::vector<xcb_window_t> windows =
            {}; ///< bottom to top, never none; some have one a monitor

        /// What its picture lies in, for all monitors together; XCB_PIXMAP_NONE where it keeps the
        /// picture to itself. Another client's: it can be freed at any moment.
        xcb_pixmap_t pixmap = XCB_PIXMAP_NONE;
        QSize pixmapSize = {};        ///< in device pixels
        std::uint8_t pixmapDepth = 0; ///< 24 or 32

        bool operator==(const Found &) const = default;
    };

    /// Asks for the present state without waiting for it: nothing is found until the replies came.
    explicit X11DesktopProgram(X11Connection &connection);

    /// What runs now; absent where nothing draws icons.
    const std::optional<Found> &found() const { return m_found; }

    /// Calls `handler` whenever `found` changed.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;

    std::optional<Found> m_found;
    ChangePublisher m_changes;
};

} // namespace zeph
