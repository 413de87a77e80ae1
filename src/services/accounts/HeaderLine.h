// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// The two sides of a line such as "X-Key: 1", without blanks around them.
struct HeaderLine {
    QString name;
    QString value;

    bool operator==(const HeaderLine &) const = default;
};

/// Splits at the first ":"; absent when there is none or a side is empty.
std::optional<HeaderLine> parseHeader(const QString &text);

} // namespace zeph
