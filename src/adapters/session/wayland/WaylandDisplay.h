// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/wayland/WaylandRoundTrip.h"

#include <QByteArray>

namespace zeph {

/// Whether the compositor of that name takes a connection and answers: the toolkit aborts the
/// process without one and waits for ever for one that hangs, so this is asked first.
bool compositorAnswers(const QByteArray &display,
                       std::chrono::milliseconds patience = compositorPatience);

} // namespace zeph
