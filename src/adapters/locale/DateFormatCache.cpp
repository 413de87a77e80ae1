// SPDX-License-Identifier: MIT
#include "adapters/locale/DateFormatCache.h"

#include "adapters/locale/IcuText.h"

#include <unicode/udat.h>

#include <cmath>

namespace zeph {

namespace {

int32_t length(const QString &text) {
    return static_cast<int32_t>(text.size());
}

} // namespace

DateFormatCache::DateFormatCache(QByteArray locale) : m_locale(std::move(locale)) {}

void DateFormatCache::Closer::operator()(void **format) const {
    udat_close(format);
}

DateFormatCache::Format DateFormatCache::make(const Key &key) const {
    const auto &[pattern, am, pm] = key;
    UErrorCode status = U_ZERO_ERROR;
    Format made(udat_open(UDAT_PATTERN, UDAT_PATTERN, m_locale.constData(), u"Etc/UTC", -1,
                          QStringView(pattern).utf16(), length(pattern), &status));
    if (U_FAILURE(status) != 0) {
        return nullptr;
    }
    auto *const format = made.get();
    udat_setSymbols(format, UDAT_AM_PMS, 0, const_cast<char16_t *>(QStringView(am).utf16()),
                    length(am), &status);
    udat_setSymbols(format, UDAT_AM_PMS, 1, const_cast<char16_t *>(QStringView(pm).utf16()),
                    length(pm), &status);
    return U_SUCCESS(status) != 0 ? std::move(made) : nullptr;
}

std::optional<QString> DateFormatCache::text(double wallTime, const QString &pattern,
                                             const DayHalfSymbols &dayHalves) {
    Key key(pattern, dayHalves.am, dayHalves.pm);
    auto found = m_formats.find(key);
    if (found == m_formats.end()) {
        auto made = make(key);
        found = m_formats.emplace(std::move(key), std::move(made)).first;
    }
    if (found->second == nullptr || !std::isfinite(wallTime)) {
        return std::nullopt;
    }
    auto *const format = found->second.get();
    return icuText([format, wallTime](char16_t *buffer, int32_t size, UErrorCode *status) {
        return udat_format(format, wallTime, buffer, size, nullptr, status);
    });
}

} // namespace zeph
