// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QImage>
#include <QList>
#include <QRect>

#include <xcb/xcb.h>

#include <memory>
#include <optional>

namespace zeph {

/// Another program of the display: it makes windows, looks at the screen and reads what windows
/// say, all on a connection of its own and waiting for each answer.
class XTestClient {
public:
    explicit XTestClient(const QByteArray &display);
    ~XTestClient();
    XTestClient(const XTestClient &) = delete;
    XTestClient &operator=(const XTestClient &) = delete;

    bool isConnected() const;

    struct Window {
        QRect geometry = {};
        std::uint32_t colour = 0;         ///< of its background
        QByteArray type = {};             ///< "_NET_WM_WINDOW_TYPE_…", none when empty
        QByteArray instance = {};         ///< of WM_CLASS, none when both are empty
        QByteArray name = {};             ///< the class of WM_CLASS
        QByteArray gtkApplicationId = {}; ///< none when empty
        QByteArray kdeDesktopFile = {};   ///< none when empty
        std::uint32_t process = 0;        ///< none when 0
        bool overridesRedirect = false;
    };

    /// Makes a window, puts it on the screen and waits until it is visible.
    xcb_window_t show(const Window &window);
    void destroy(xcb_window_t window);

    /// Cuts off whoever made this, as the death of that program would.
    void killOwner(xcb_drawable_t drawable);

    /// Sets a property of cardinals.
    void setNumbers(xcb_window_t window, const QByteArray &property,
                    const QList<std::uint32_t> &values);
    /// The same of another type, such as windows or atoms.
    void setIds(xcb_window_t window, const QByteArray &property, xcb_atom_t type,
                const QList<std::uint32_t> &ids);
    /// A pixmap of its own, which ends with it.
    xcb_pixmap_t makePixmap(QSize size, std::uint8_t depth);
    void freePixmap(xcb_pixmap_t pixmap);

    /// Sets a property of UTF-8 text.
    void setText(xcb_window_t window, const QByteArray &property, const QByteArray &text);
    void raise(xcb_window_t window);
    void resize(xcb_window_t window, QSize size);

    /// Asks the window manager to give it the focus.
    void activate(xcb_window_t window);

    /// Clicks and focus notices that its windows got since the last call.
    int takeClicks(xcb_window_t window);

    /// Asks another program's window for its focus notices.
    void watchFocus(xcb_window_t window);
    int focusCount(xcb_window_t window);

    /// Whether held keys repeat.
    void setAutoRepeat(bool repeats);
    /// Makes these keys the third of the modifiers, which a new server leaves without any.
    void setThirdModifier(const QList<xcb_keycode_t> &keys);

    xcb_window_t root() const;
    xcb_atom_t atom(const QByteArray &name) const;
    QList<std::uint32_t> numbers(xcb_window_t window, const QByteArray &property) const;
    QByteArrayList atomNames(xcb_window_t window, const QByteArray &property) const;
    QByteArray text(xcb_window_t window, const QByteArray &property) const;

    /// The window whose WM_NAME is this, anywhere in the tree; 0 when there is none.
    xcb_window_t find(const QByteArray &title) const;
    QList<xcb_window_t> findAll(const QByteArray &title) const;
    QRect geometry(xcb_window_t window) const; ///< on the root
    int depth(xcb_window_t window) const;
    bool isViewable(xcb_window_t window) const;
    xcb_window_t focus() const;

    /// The top-level windows (children of the root) from bottom to top, frames included.
    QList<xcb_window_t> stacking() const;
    /// The top-level window that holds `window`.
    xcb_window_t frameOf(xcb_window_t window) const;

    /// The size of a window or pixmap; empty when it is gone.
    QSize size(xcb_drawable_t drawable) const;

    /// One pixel of a pixmap with all its bits; absent when it is gone.
    std::optional<std::uint32_t> pixelOf(xcb_pixmap_t pixmap, QPoint position) const;

    /// What is on the screen now.
    QImage screenshot(const QRect &area) const;
    QRgb pixel(QPoint position) const;

private:
    void drainEvents();

    struct Disconnect {
        void operator()(xcb_connection_t *connection) const { xcb_disconnect(connection); }
    };
    std::unique_ptr<xcb_connection_t, Disconnect> m_connection;
    xcb_screen_t *m_screen = nullptr;
    QList<xcb_window_t> m_clicks;
    QList<xcb_window_t> m_focused;
    QList<xcb_window_t> m_visible;
};

} // namespace zeph
