// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

namespace zeph {

/// Connects to the socket of the compositor that `display` names: a path, or a name in
/// $XDG_RUNTIME_DIR. Never waits, unlike the library's own way with one whose queue of connections
/// is full. A descriptor that the caller owns, or -1.
int connectToCompositor(const QByteArray &display);

} // namespace zeph
