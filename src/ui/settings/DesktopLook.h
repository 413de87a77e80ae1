// SPDX-License-Identifier: MIT
#pragma once

#include "base/ChangePublisher.h"
#include "base/WorkOwner.h"
#include "ports/DesktopAppearance.h"
#include "ui/controls/Look.h"

namespace zeph {

class RunLoop;

namespace ui {

/// The appearance that the desktop asks for. Where it tells no scheme, the lightness of the
/// toolkit's own window colour decides.
Appearance appearanceOf(const DesktopAppearance &desktop, const QPalette &palette);

/// The look of a window, kept in step with the desktop: dark or light, contrast and motion.
class DesktopLook {
public:
    /// Dresses `window` at once. The desktop and the loop outlive this, and this the window.
    DesktopLook(QWidget &window, DesktopAppearance &desktop, RunLoop &runLoop);
    ~DesktopLook();
    DesktopLook(const DesktopLook &) = delete;
    DesktopLook &operator=(const DesktopLook &) = delete;

    Look &look() { return m_look; }

    /// To be called when the toolkit's palette has changed.
    void refreshSoon();

private:
    void refresh();

    DesktopAppearance &m_desktop;
    RunLoop &m_runLoop;
    Look m_look;
    bool m_refreshes = false; // a refresh is pending
    WorkOwner m_owner;
    Subscription m_subscription;
};

} // namespace ui

} // namespace zeph
