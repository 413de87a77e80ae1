// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// Whether the user asked not to be disturbed.
enum class FocusState { off, on, unknown };

/// The text form: "off", "on", "unknown".
QString rawValue(FocusState state);

/// The state of a text form, absent for any other text.
std::optional<FocusState> focusStateFromRaw(const QString &raw);

} // namespace zeph
