// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace zeph {

/// Where a display server of this machine listens.
struct DisplaySocket {
    QByteArray folder;
    QByteArray name;

    bool operator==(const DisplaySocket &) const = default;
};

/// The socket of the Wayland compositor that `display` names: a path, or a name in `runtimeFolder`.
/// Absent where it names none.
std::optional<DisplaySocket> compositorSocket(const QByteArray &display,
                                              const QByteArray &runtimeFolder);

/// The socket of the X server that `display` names, such as ":0" or "unix:1.0". Absent for one of
/// another machine.
std::optional<DisplaySocket> xServerSocket(const QByteArray &display);

} // namespace zeph
