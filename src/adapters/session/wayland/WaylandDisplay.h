// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/WaylandRoundTrip.h"

#include <QByteArray>

#include <optional>

namespace zeph {

/// Whether the compositor of that name takes a connection and answers: the toolkit aborts the
/// process without one and waits for ever for one that hangs, so this is asked first.
bool compositorAnswers(const QByteArray &display,
                       std::chrono::milliseconds patience = compositorPatience);

/// The process that listens for the clients of the compositor of that name; absent where nobody
/// does.
std::optional<qint64> compositorProcess(const QByteArray &display);

} // namespace zeph
