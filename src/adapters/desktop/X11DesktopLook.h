// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace zeph {

/// Whether a window with this instance in its WM_CLASS is a desktop of the X display that the
/// environment names; absent without one. Asks over a connection of its own and waits for the
/// answers, so not on the main thread.
std::optional<bool> hasDesktopWindow(const QByteArray &instance);

} // namespace zeph
