// SPDX-License-Identifier: MIT
#include "services/accounts/HeaderLine.h"

#include "base/Blanks.h"

namespace zeph {

std::optional<HeaderLine> parseHeader(const QString &text) {
    const qsizetype colon = text.indexOf(u':');
    if (colon < 0) {
        return std::nullopt;
    }
    HeaderLine header{withoutOuterBlanks(text.left(colon)),
                      withoutOuterBlanks(text.mid(colon + 1))};
    const bool isWhole = !header.name.isEmpty() && !header.value.isEmpty();
    return isWhole ? std::optional(std::move(header)) : std::nullopt;
}

} // namespace zeph
