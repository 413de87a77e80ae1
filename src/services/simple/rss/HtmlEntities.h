// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// The character of an entity that HTML 4 names and XML does not, such as "nbsp". Feeds use them
/// although they declare none.
std::optional<QChar> htmlEntity(const QString &name);

} // namespace zeph
