// SPDX-License-Identifier: MIT
#pragma once

#include <QVariant>

#include <optional>

namespace zeph {

/// The boolean in a value from the bus; absent for any other type.
std::optional<bool> truthIn(const QVariant &value);

} // namespace zeph
