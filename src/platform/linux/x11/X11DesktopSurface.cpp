// SPDX-License-Identifier: MIT
#include "platform/linux/x11/X11DesktopSurface.h"

#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11DesktopHints.h"
#include "platform/linux/x11/X11DesktopStacking.h"

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

// The server refuses windows without area.
QRect usable(const QRect &frame) {
    return {frame.topLeft(), frame.size().expandedTo(QSize(1, 1))};
}

// Signed coordinates travel as the unsigned words of a value list.
std::uint32_t word(int value) {
    return static_cast<std::uint32_t>(value);
}

} // namespace

X11DesktopSurface::X11DesktopSurface(X11Connection &connection, X11DesktopStacking &stacking,
                                     const X11Visual &visual, const Screen &screen)
    : X11EventListener(connection),
      m_stacking(stacking),
      m_visual(visual),
      m_geometry(usable(screen.deviceFrame)),
      m_colormap(xcb_generate_id(connection.xcb())),
      m_canvas{xcb_generate_id(connection.xcb()), xcb_generate_id(connection.xcb()), visual.depth},
      m_frame(std::in_place, connection, m_geometry.size(), format()) {
    createWindow();
    m_stacking.add(m_canvas.window);
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
        kBackground, kBackground,
        static_cast<std::uint32_t>(XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY),
        m_colormap};
    xcb_create_window(xcb, m_visual.depth, m_canvas.window, connection().root(),
                      static_cast<std::int16_t>(m_geometry.x()),
                      static_cast<std::int16_t>(m_geometry.y()),
                      static_cast<std::uint16_t>(m_geometry.width()),
                      static_cast<std::uint16_t>(m_geometry.height()), 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, m_visual.number,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP,
                      values.data());
    // Without this every put would be answered by an event that wakes us up.
    const std::uint32_t exposures = 0;
    xcb_create_gc(xcb, m_canvas.context, m_canvas.window, XCB_GC_GRAPHICS_EXPOSURES, &exposures);
    writeDesktopHints(connection(), m_canvas.window);
    writeGeometryHints(connection(), m_canvas.window, m_geometry);
    if (hasAlpha()) {
        // One compositor draws desktop windows opaque unless their opacity is just below full.
        const std::uint32_t nearlyFull = 0xFFFFFFFE;
        xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, m_canvas.window,
                            connection().atom(X11Atom::netWmWindowOpacity), XCB_ATOM_CARDINAL, 32,
                            1, &nearlyFull);
    }
}

void X11DesktopSurface::setScreen(const Screen &screen) {
    const QRect next = usable(screen.deviceFrame);
    const QRect last = std::exchange(m_geometry, next);
    if (next == last) {
        return;
    }
    if (next.size() != last.size()) {
        // The old buffer goes first: two of a large screen would be a lot of memory.
        m_frame.reset();
        m_frame.emplace(connection(), next.size(), format());
        m_exposed = {};
    }
    writeGeometryHints(connection(), m_canvas.window, next);
    const std::array values{word(next.x()), word(next.y()), word(next.width()),
                            word(next.height())};
    xcb_configure_window(connection().xcb(), m_canvas.window,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         values.data());
    xcb_flush(connection().xcb());
}

QImage &X11DesktopSurface::frameBuffer() {
    return m_frame->image();
}

void X11DesktopSurface::present(const QRegion &damage) {
    if (m_isVisible) {
        m_frame->put(m_canvas, damage);
    }
}

void X11DesktopSurface::orderFront() {
    if (std::exchange(m_isVisible, true)) {
        return;
    }
    m_mapTries = 0;
    m_mapWatch.start();
    map();
}

void X11DesktopSurface::map() {
    if (++m_mapTries == kMapTries) {
        m_mapWatch.stop();
    }
    writeDesktopState(connection(), m_canvas.window);
    refuseInput(connection(), m_canvas.window);
    if (!m_stacking.hasWindowManager()) {
        // Nobody knows of layers then, and a new window would cover all others.
        const std::uint32_t below = XCB_STACK_MODE_BELOW;
        xcb_configure_window(connection().xcb(), m_canvas.window, XCB_CONFIG_WINDOW_STACK_MODE,
                             &below);
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
    switch (kind) {
    case XCB_MAP_NOTIFY:
        // Window managers wrap the window in a frame of their own, with an input shape of its
        // own, and some look at ours only when it changes afterwards.
        if (eventAs<xcb_map_notify_event_t>(event).window == m_canvas.window) {
            m_mapWatch.stop();
            refuseInput(connection(), m_canvas.window);
            askForDesktopState(connection(), m_canvas.window);
        }
        break;
    case XCB_REPARENT_NOTIFY:
        if (eventAs<xcb_reparent_notify_event_t>(event).window == m_canvas.window) {
            refuseInput(connection(), m_canvas.window);
        }
        break;
    case XCB_EXPOSE:
        noteExposure(eventAs<xcb_expose_event_t>(event));
        break;
    default:
        break;
    }
}

void X11DesktopSurface::noteExposure(const xcb_expose_event_t &expose) {
    if (expose.window != m_canvas.window) {
        return;
    }
    m_exposed += QRect(expose.x, expose.y, expose.width, expose.height);
    if (expose.count == 0) {
        present(std::exchange(m_exposed, {}));
    }
}

QImage::Format X11DesktopSurface::format() const {
    return hasAlpha() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
}

} // namespace zeph
