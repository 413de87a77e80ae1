// SPDX-License-Identifier: MIT
#include "services/simple/rss/RSSParser.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const auto feed = zeph::RSSParser().parse(bytes);
    if (!feed) {
        return 0;
    }
    // Whatever the bytes were: titles are trimmed lines, none is empty, and entities add no more to
    // them than is allowed.
    constexpr qsizetype mostExpansion = 65536;
    qsizetype length = feed->title.size();
    const auto isLine = [](const QString &title) {
        return title == title.trimmed() && !title.contains(QLatin1Char('\n')) &&
               !title.contains(QLatin1String("  "));
    };
    bool isClean = isLine(feed->title);
    for (const QString &item : feed->items) {
        length += item.size();
        isClean = isClean && !item.isEmpty() && isLine(item);
    }
    if (!isClean || length > bytes.size() + mostExpansion) {
        std::abort();
    }
    return 0;
}
