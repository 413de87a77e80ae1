// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <unicode/utypes.h>

#include <array>
#include <optional>

namespace zeph {

/// The text that a function of the locale library writes: `fill(buffer, size, &status)` answers
/// the full length and is called again with enough room when the first buffer was too small.
/// Absent when it fails. Only for sources of this folder.
template <typename Fill>
std::optional<QString> icuText(Fill fill) {
    std::array<char16_t, 64> buffer{};
    UErrorCode status = U_ZERO_ERROR;
    const int32_t length = fill(buffer.data(), static_cast<int32_t>(buffer.size()), &status);
    if (status == U_BUFFER_OVERFLOW_ERROR) {
        status = U_ZERO_ERROR;
        std::u16string longer(static_cast<std::size_t>(length), u'\0');
        fill(longer.data(), length, &status);
        return U_SUCCESS(status) != 0 ? std::optional(QString::fromStdU16String(longer))
                                      : std::nullopt;
    }
    return U_SUCCESS(status) != 0 ? std::optional(QStringView(buffer.data(), length).toString())
                                  : std::nullopt;
}

} // namespace zeph
