// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// `text` percent-encoded so that it stays one segment of a path or one value of a query, whatever
/// it holds. Absent for a text with half a surrogate pair, which has no UTF-8 form.
std::optional<QString> urlPart(const QString &text);

} // namespace zeph
