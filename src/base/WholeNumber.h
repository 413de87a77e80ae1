// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <algorithm>
#include <optional>

namespace zeph {

/// True for ASCII digits alone, and for nothing at all.
inline bool hasOnlyDigits(QStringView text) {
    return std::all_of(text.begin(), text.end(),
                       [](QChar character) { return character >= u'0' && character <= u'9'; });
}

/// A decimal number: an optional sign and ASCII digits, inside 64 bits. The library's own reading
/// also takes blanks and the digits of other scripts.
inline std::optional<qint64> wholeNumber(QStringView text) {
    const bool isSigned = text.startsWith(u'-') || text.startsWith(u'+');
    bool fits = false;
    const qint64 number = text.toLongLong(&fits);
    return fits && hasOnlyDigits(text.sliced(isSigned ? 1 : 0)) ? std::optional(number)
                                                                : std::nullopt;
}

} // namespace zeph
