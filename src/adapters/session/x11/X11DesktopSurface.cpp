// SPDX-License-Identifier: MIT
#include "adapters/session/x11/X11DesktopSurface.h"

#include "adapters/session/x11/X11Connection.h"
#include "adapters/session/x11/X11DesktopHints.h"
#include "adapters/session/x11/X11DesktopStacking.h"
#include "adapters/session/x11/X11Properties.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zeph {

namespace {

// Black, or nothing at all where there is alpha: what shows before the first pixels arrive.
constexpr std::uint32_t kBackground = 0;

// A window manager that is just starting can swallow the request to map: it is repeated until the
// window is on the screen. At login both start at the same time.
constexpr int kMapPatienceMilliseconds = 1000;
constexpr int kMapTries = 20;

// Some window managers hold the window in a container inside their frame. What lies above that
// may hold the windows of others too.
constexpr int kMostFrames = 2;

constexpr int kPlacementsPerBurst = 5;

// Signed coordinates travel as the unsigned words of a value list.
std::uint32_t word(int value) {
    return static_cast<std::uint32_t>(value);
}

} // namespace

X11DesktopSurface::X11DesktopSurface(X11Connection &connection, X11DesktopStacking &stacking,
                                     DesktopPlace place, const X11Visual &visual,
                                     const Screen &screen)
    : X11EventListener(connection),
      m_stacking(stacking),
      m_place(place),
      m_visual(visual),
      m_colormap(xcb_generate_id(connection.xcb())),
      m_canvas{xcb_generate_id(connection.xcb()), xcb_generate_id(connection.xcb()), visual.depth},
      m_pixels(connection, screen.deviceFrame, format(), X11SurfacePixels::AtFirst::nothing,
               [this](const QRegion &region) { put(region); }),
      m_placements([this] { notePlace(); }) {
    createWindow();
    m_stacking.add(m_canvas.window, m_place);
    m_mapWatch.setInterval(kMapPatienceMilliseconds);
    QObject::connect(&m_mapWatch, &QTimer::timeout, &m_mapWatch, [this] { map(); });
}

X11DesktopSurface::~X11DesktopSurface() {
    m_stacking.remove(m_canvas.window);
    xcb_free_gc(connection().xcb(), m_canvas.context);
    xcb_destroy_window(connection().xcb(), m_canvas.window);
    xcb_free_colormap(connection().xcb(), m_colormap);
    xcb_flush(connection().xcb());
}

void X11DesktopSurface::createWindow() {
    xcb_connection_t *xcb = connection().xcb();
    xcb_create_colormap(xcb, XCB_COLORMAP_ALLOC_NONE, m_colormap, connection().root(),
                        m_visual.number);
    const std::array values{
        kBackground, kBackground, std::uint32_t{m_place == DesktopPlace::beneathManaged ? 1U : 0U},
        static_cast<std::uint32_t>(XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                   XCB_EVENT_MASK_PROPERTY_CHANGE),
        m_colormap};
    xcb_create_window(xcb, m_visual.depth, m_canvas.window, connection().root(),
                      static_cast<std::int16_t>(m_pixels.geometry().x()),
                      static_cast<std::int16_t>(m_pixels.geometry().y()),
                      static_cast<std::uint16_t>(m_pixels.geometry().width()),
                      static_cast<std::uint16_t>(m_pixels.geometry().height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, m_visual.number,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_OVERRIDE_REDIRECT |
                          XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
                      values.data());
    // Without this every put would be answered by an event that wakes us up.
    const std::uint32_t exposures = 0;
    xcb_create_gc(xcb, m_canvas.context, m_canvas.window, XCB_GC_GRAPHICS_EXPOSURES, &exposures);
    writeDesktopHints(connection(), m_canvas.window);
    writeGeometryHints(connection(), m_canvas.window, m_pixels.geometry());
    if (hasAlpha()) {
        // One compositor draws desktop windows opaque unless their opacity is just below full.
        const std::uint32_t nearlyFull = 0xFFFFFFFE;
        xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, m_canvas.window,
                            connection().atom(X11Atom::netWmWindowOpacity), XCB_ATOM_CARDINAL, 32,
                            1, &nearlyFull);
    }
}

void X11DesktopSurface::setScreen(const Screen &screen) {
    const auto change = m_pixels.setFrame(screen.deviceFrame);
    if (change == X11SurfacePixels::Change::none) {
        return;
    }
    if (change == X11SurfacePixels::Change::size) {
        m_exposed = {};
    }
    writeGeometryHints(connection(), m_canvas.window, m_pixels.geometry());
    place();
    xcb_flush(connection().xcb());
}

void X11DesktopSurface::place() {
    const std::array values{word(m_pixels.geometry().x()), word(m_pixels.geometry().y()),
                            word(m_pixels.geometry().width()), word(m_pixels.geometry().height())};
    xcb_configure_window(connection().xcb(), m_canvas.window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
}

QRegion X11DesktopSurface::show(FramePainter paint) {
    return m_pixels.show(std::move(paint));
}

void X11DesktopSurface::put(const QRegion &region) {
    if (m_isVisible) {
        m_pixels.buffer().put(m_canvas, region);
    }
}

void X11DesktopSurface::orderFront() {
    if (std::exchange(m_isVisible, true)) {
        return;
    }
    m_mapTries = 0;
    m_mapWatch.start();
    map();
    // A window manager that is late may have mapped it after `orderOut`: then nothing is exposed
    // by mapping it again.
    put(std::exchange(m_exposed, {}));
    xcb_flush(connection().xcb());
}

void X11DesktopSurface::map() {
    if (++m_mapTries == kMapTries) {
        m_mapWatch.stop();
    }
    writeDesktopState(connection(), m_canvas.window);
    refuseInput(connection(), m_canvas.window);
    if (m_place != DesktopPlace::aboveDesktops || !m_stacking.hasWindowManager()) {
        // Where nobody knows of layers a new window would cover all others.
        m_stacking.layDown(m_canvas.window);
    }
    xcb_map_window(connection().xcb(), m_canvas.window);
    xcb_flush(connection().xcb());
}

void X11DesktopSurface::orderOut() {
    if (std::exchange(m_isVisible, false)) {
        m_mapWatch.stop();
        withdraw(connection(), m_canvas.window);
        m_exposed = {};
        xcb_flush(connection().xcb());
    }
}

void X11DesktopSurface::handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) {
    if (m_pixels.buffer().becomesFreeBy(kind, event)) {
        m_pixels.paintWaiting();
        return;
    }
    switch (kind) {
    case XCB_MAP_NOTIFY:
        if (eventAs<xcb_map_notify_event_t>(event).window == m_canvas.window) {
            m_mapWatch.stop();
            refuseInput(connection(), m_canvas.window);
            refuseInputInFrames(m_canvas.window, kMostFrames);
            askForDesktopState(connection(), m_canvas.window);
        }
        break;
    case XCB_CONFIGURE_NOTIFY:
        if (eventAs<xcb_configure_notify_event_t>(event).window == m_canvas.window) {
            notePlace();
        }
        break;
    case XCB_REPARENT_NOTIFY:
        if (const auto &notify = eventAs<xcb_reparent_notify_event_t>(event);
            notify.window == m_canvas.window) {
            noteParent(notify.parent);
        }
        break;
    case XCB_PROPERTY_NOTIFY:
        if (const auto &notify = eventAs<xcb_property_notify_event_t>(event);
            notify.window == m_canvas.window &&
            notify.atom == connection().atom(X11Atom::netWmState)) {
            noteState();
        }
        break;
    case XCB_EXPOSE:
        noteExposure(eventAs<xcb_expose_event_t>(event));
        break;
    default:
        break;
    }
}

/// Window managers wrap the window in a frame of their own, with an input shape of its own. Some
/// look at ours only when it changes afterwards, some never.
void X11DesktopSurface::noteParent(xcb_window_t parent) {
    refuseInput(connection(), m_canvas.window);
    if (parent != connection().root()) {
        refuseInput(connection(), parent);
        refuseInputInFrames(parent, kMostFrames - 1);
    } else if (m_isVisible) {
        // The window manager has gone, and what it held is put on top of all.
        m_stacking.layDown(m_canvas.window);
    }
}

/// Some window managers let people and programs move and resize even a desktop, and keep it so.
void X11DesktopSurface::notePlace() {
    const unsigned corner =
        xcb_translate_coordinates(connection().xcb(), m_canvas.window, connection().root(), 0, 0)
            .sequence;
    const unsigned size = xcb_get_geometry(connection().xcb(), m_canvas.window).sequence;
    connection().whenReplied(*this, {corner, size}, [this](const X11Connection::Replies &replies) {
        const auto *at = static_cast<const xcb_translate_coordinates_reply_t *>(replies[0].get());
        const auto *extent = static_cast<const xcb_get_geometry_reply_t *>(replies[1].get());
        if (at && extent &&
            QRect(at->dst_x, at->dst_y, extent->width, extent->height) != m_pixels.geometry() &&
            m_placements.allows(kPlacementsPerBurst)) {
            place();
        }
    });
}

/// Takes the input from what holds `window`, up to so many levels; the root is none.
void X11DesktopSurface::refuseInputInFrames(xcb_window_t window, int levels) {
    if (levels == 0) {
        return;
    }
    const unsigned request = xcb_query_tree(connection().xcb(), window).sequence;
    connection().whenReplied(
        *this, {request}, [this, levels](const X11Connection::Replies &replies) {
            const auto *tree = static_cast<const xcb_query_tree_reply_t *>(replies[0].get());
            if (tree && tree->parent != XCB_WINDOW_NONE && tree->parent != tree->root) {
                refuseInput(connection(), tree->parent);
                refuseInputInFrames(tree->parent, levels - 1);
            }
        });
}

/// Some window managers call for attention to a new window that they don't focus.
void X11DesktopSurface::noteState() {
    constexpr std::uint32_t kMostStates = 32;
    const unsigned request =
        requestProperty(connection(), m_canvas.window, connection().atom(X11Atom::netWmState),
                        XCB_ATOM_ATOM, kMostStates);
    connection().whenReplied(*this, {request}, [this](const X11Connection::Replies &replies) {
        const auto states = atomsIn(propertyIn(replies[0]));
        if (std::find(states.begin(), states.end(),
                      connection().atom(X11Atom::netWmStateDemandsAttention)) != states.end()) {
            askForNoAttention(connection(), m_canvas.window);
        }
    });
}

void X11DesktopSurface::noteExposure(const xcb_expose_event_t &expose) {
    if (expose.window != m_canvas.window) {
        return;
    }
    m_exposed += QRect(expose.x, expose.y, expose.width, expose.height);
    if (expose.count == 0 && m_isVisible) {
        put(std::exchange(m_exposed, {}));
    }
}

QImage::Format X11DesktopSurface::format() const {
    return hasAlpha() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
}

} // namespace zeph
