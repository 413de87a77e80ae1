// SPDX-License-Identifier: MIT
#pragma once

#include <QRect>
#include <QString>

#include <optional>

namespace zeph {

class X11Connection;

/// The device pixels that the monitor with this name covers; a few round trips. Absent when there
/// is no such monitor.
std::optional<QRect> monitorGeometry(X11Connection &connection, const QString &name);

} // namespace zeph
