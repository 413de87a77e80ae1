// SPDX-License-Identifier: MIT
#include "platform/icu/ZoneName.h"

#include <unicode/ucal.h>

#include <array>

namespace zeph {

bool isKnownZone(QStringView id) {
    std::array<char16_t, 128> canonical{};
    UErrorCode status = U_ZERO_ERROR;
    ucal_getCanonicalTimeZoneID(id.utf16(), static_cast<int32_t>(id.size()), canonical.data(),
                                static_cast<int32_t>(canonical.size()), nullptr, &status);
    return !id.isEmpty() && U_SUCCESS(status) != 0;
}

} // namespace zeph
