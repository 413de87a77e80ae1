// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace zeph {

/// Whether a program draws the desktop.
struct DesktopLook {
    bool isDrawn = false;
    quint32 process = 0; ///< the program's, 0 where it is not told
};

/// Looks for a window with this instance in its WM_CLASS that is a desktop of the X display that
/// the environment names; absent without one. Asks over a connection of its own and waits for the
/// answers, so not on the main thread.
std::optional<DesktopLook> lookForDesktop(const QByteArray &instance);

} // namespace zeph
