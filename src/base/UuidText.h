// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUuid>

#include <optional>

namespace zeph {

/// The stored form of an identity: upper-case, hyphenated, without braces.
inline QString uuidText(const QUuid &id) {
    return id.toString(QUuid::WithoutBraces).toUpper();
}

/// Reads the hyphenated form in either case; absent for any other.
inline std::optional<QUuid> uuidFromText(const QString &text) {
    const QUuid id = QUuid::fromString(text);
    const bool isSameForm =
        id.toString(QUuid::WithoutBraces).compare(text, Qt::CaseInsensitive) == 0;
    return isSameForm ? std::optional(id) : std::nullopt;
}

} // namespace zeph
