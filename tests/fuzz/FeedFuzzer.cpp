// SPDX-License-Identifier: MIT
#include "integrations/simple/rss/RSSParser.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const auto feed = zeph::RSSParser().parse(bytes);
    if (!feed) {
        return 0;
    }
    // Whatever the bytes were: titles are trimmed, none is empty, and entities add no more to them
    // than is allowed.
    constexpr qsizetype mostExpansion = 65536;
    qsizetype length = feed->title.size();
    bool isClean = feed->title == feed->title.trimmed();
    for (const QString &item : feed->items) {
        length += item.size();
        isClean = isClean && !item.isEmpty() && item == item.trimmed();
    }
    if (!isClean || length > bytes.size() + mostExpansion) {
        std::abort();
    }
    return 0;
}
