// SPDX-License-Identifier: MIT
#include "platform/linux/DesktopEntryParser.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

// What the rest of the program relies on, whatever the bytes were.
void check(const zeph::DesktopEntry &entry) {
    constexpr qsizetype kLongest = 256;
    const bool isBounded = entry.name.size() <= kLongest &&
                           entry.startupWmClass.size() <= kLongest &&
                           entry.program.size() <= kLongest;
    if (!isBounded || entry.program.contains(u'/') || entry.name.contains(u'\n') ||
        (entry.name.isEmpty() && !entry.isHidden)) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    static const QStringList locales =
        zeph::desktopEntryLocales(QStringLiteral("de_AT.UTF-8@euro"));
    if (const auto entry = zeph::parseDesktopEntry(bytes, locales)) {
        check(*entry);
    }
    return 0;
}
