// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace zeph {

/// The first `most` bytes of an ordinary file. Absent when it is missing, unreadable or something
/// else, such as a pipe, on which a reader would wait.
std::optional<QByteArray> readSmallFile(const QByteArray &path, qint64 most);

} // namespace zeph
