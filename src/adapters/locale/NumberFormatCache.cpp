// SPDX-License-Identifier: MIT
#include "adapters/locale/NumberFormatCache.h"

#include "adapters/locale/IcuText.h"

#include <unicode/unum.h>

namespace zeph {

void NumberFormatCache::Closer::operator()(void **format) const {
    unum_close(format);
}

NumberFormatCache::Format NumberFormatCache::make(const NumberFormatUse &use) {
    UErrorCode status = U_ZERO_ERROR;
    const UNumberFormatStyle style = use.currency.isEmpty() ? UNUM_DECIMAL : UNUM_CURRENCY;
    Format made(unum_open(style, nullptr, 0, use.locale.constData(), nullptr, &status));
    if (U_FAILURE(status) != 0) {
        return nullptr;
    }
    if (style == UNUM_CURRENCY) {
        unum_setTextAttribute(made.get(), UNUM_CURRENCY_CODE, QStringView(use.currency).utf16(),
                              static_cast<int32_t>(use.currency.size()), &status);
    }
    // After the code, which brings fraction digits of its own.
    unum_setAttribute(made.get(), UNUM_MIN_FRACTION_DIGITS, use.minimumFractionDigits);
    unum_setAttribute(made.get(), UNUM_MAX_FRACTION_DIGITS, use.maximumFractionDigits);
    unum_setAttribute(made.get(), UNUM_ROUNDING_MODE, UNUM_ROUND_HALFEVEN);
    return U_SUCCESS(status) != 0 ? std::move(made) : nullptr;
}

void **NumberFormatCache::format(const NumberFormatUse &use) {
    auto found = m_formats.find(use);
    if (found == m_formats.end()) {
        found = m_formats.emplace(use, make(use)).first;
    }
    return found->second.get();
}

std::optional<QString> NumberFormatCache::text(double number, const NumberFormatUse &use) {
    void **const with = format(use);
    if (with == nullptr) {
        return std::nullopt;
    }
    return icuText([with, number](char16_t *buffer, int32_t size, UErrorCode *status) {
        return unum_formatDouble(with, number, buffer, size, nullptr, status);
    });
}

std::optional<QString> NumberFormatCache::text(qint64 number, const NumberFormatUse &use) {
    void **const with = format(use);
    if (with == nullptr) {
        return std::nullopt;
    }
    return icuText([with, number](char16_t *buffer, int32_t size, UErrorCode *status) {
        return unum_formatInt64(with, number, buffer, size, nullptr, status);
    });
}

std::optional<QString> NumberFormatCache::currencySymbol(const NumberFormatUse &use) {
    void **const with = format(use);
    if (with == nullptr) {
        return std::nullopt;
    }
    return icuText([with](char16_t *buffer, int32_t size, UErrorCode *status) {
        return unum_getSymbol(with, UNUM_CURRENCY_SYMBOL, buffer, size, status);
    });
}

} // namespace zeph
