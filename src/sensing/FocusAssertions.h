// SPDX-License-Identifier: MIT
#pragma once

#include "model/FocusState.h"

#include <QByteArray>

namespace zeph {

/// What the bytes of a Focus state file tell. `unknown` for what is no JSON object; a file that is
/// understood but lacks the expected entries is `off`. Only the presence of records counts.
FocusState focusStateIn(const QByteArray &assertions);

} // namespace zeph
