// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/X11EventListener.h"
#include "adapters/tray/TrayTools.h"

#include <QColor>
#include <QSize>

#include <optional>

namespace zeph {

/// The window of an item within a tray of the X server. A click opens the menu.
class DockedWindow : private X11EventListener {
public:
    /// Asks `tray`, a window of the program that collects such windows, to take it. `facts` and
    /// `tools` outlive this. A few round trips, none to that program.
    DockedWindow(X11Connection &connection, xcb_window_t tray, const TrayFacts &facts,
                 const TrayTools &tools);
    ~DockedWindow() override;

    xcb_window_t window() const { return m_window; }

private:
    void handleEvent(std::uint8_t kind, const xcb_generic_event_t &event) override;
    void readTray(xcb_window_t tray);
    void makeWindow();
    void writeHints();
    void askToDock(xcb_window_t tray);
    void clicked(const xcb_button_release_event_t &release);
    void draw();
    void show(QImage ground, const QImage &symbol);
    QImage mask() const;

    const TrayFacts &m_facts;
    const TrayTools &m_tools;
    xcb_window_t m_window;
    xcb_gcontext_t m_context;
    xcb_colormap_t m_colours = XCB_NONE; // of a window with alpha
    std::uint8_t m_depth;
    std::optional<QColor> m_ink; // of the tray's other symbols, where it tells
    QSize m_size;
    bool m_isDrawing = false;
    bool m_drawsAgain = false;
};

} // namespace zeph
