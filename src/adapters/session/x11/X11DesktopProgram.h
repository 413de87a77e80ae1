// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/choose/DesktopProgram.h"
#include "adapters/session/x11/LooksAfterResizing.h"
#include "adapters/session/x11/PictureEnlargement.h"
#include "adapters/session/x11/RootPixmapTarget.h"
#include "adapters/session/x11/SilentPicture.h"
#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11EventListener.h"
#include "base/ChangePublisher.h"

#include <QSize>
#include <QTimer>

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <vector>

namespace zeph {

class X11DesktopWindows;

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

        /// What its picture lies in; XCB_PIXMAP_NONE where it keeps the picture to itself, and
        /// what is announced is another program's, such as that of a login screen. Another
        /// client's: it can be freed at any moment.
        xcb_pixmap_t pixmap = XCB_PIXMAP_NONE;
        QSize pixmapSize = {};         ///< in pixels of its own
        std::uint8_t pixmapDepth = 0;  ///< 24 or 32
        bool isPixmapAnnounced = true; ///< on the root window
        bool isPixmapPartial = false;  ///< smaller than all monitors together
        int enlargement = 1;           ///< device pixels for one of the picture, each way

        /// Its picture, and where it shows it.
        RootPixmapTarget target() const {
            return {pixmap, pixmapDepth, pixmapSize, windows, isPixmapAnnounced, enlargement};
        }

        bool operator==(const Found &) const = default;
    };

    /// Asks for the present state without waiting for it: nothing is found until the replies came.
    /// `windows` outlives it.
    X11DesktopProgram(X11Connection &connection, X11DesktopWindows &windows);

    /// What runs now; absent where nothing draws icons.
    const std::optional<Found> &found() const { return m_found; }

    /// To be called when its picture turned out to be gone, of which nobody is told.
    void lookAgain() { read(); }

    /// Calls `handler` whenever `found` changed.
    [[nodiscard]] Subscription subscribe(std::function<void()> handler);

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    bool isNews(std::uint8_t kind, const xcb_generic_event_t &event) const;
    std::vector<xcb_window_t> windowsOfOthers() const;
    void read();
    void readCandidates(std::vector<xcb_window_t> candidates, xcb_pixmap_t pixmap);
    void watch(const std::vector<xcb_window_t> &candidates);
    static std::optional<Found> describe(const std::vector<xcb_window_t> &candidates,
                                         const X11Connection::Replies &replies);
    void readMaker(Found found, xcb_pixmap_t pixmap);
    void readPixmap(Found found, xcb_pixmap_t pixmap);
    void lookForSilentPicture(Found found, const PixmapForm &whole);
    void noteSize(xcb_window_t window, const QSize &size);
    void lookLater();
    void take(std::optional<Found> found);

    X11DesktopWindows &m_windows;
    std::vector<xcb_window_t> m_listed; // desktops of others, at the last look
    std::set<xcb_window_t> m_watched;   // windows that tell us of their end
    std::optional<Found> m_found;
    ChangePublisher m_changes;
    Subscription m_listing;
    bool m_isReading = false;
    bool m_readsAgain = false;
    SilentPicture m_silent;
    PictureEnlargement m_enlargement;      // of Caja
    std::map<xcb_window_t, QSize> m_sizes; // of the root and of what is watched, when last told
    LooksAfterResizing m_looks;            // of one of these
    QTimer m_nextLook;
    QSize m_screenSize; // of all monitors together, at the last look
};

} // namespace zeph
