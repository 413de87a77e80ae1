// SPDX-License-Identifier: MIT
#include "adapters/places/CityTable.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

// What the rest of the program relies on, whatever the bytes were. The comparison fails for what
// is no number as well.
void check(const zeph::CityTable &table, const zeph::Coordinate &position) {
    const auto city = table.nearest(position);
    if (city.has_value() == table.isEmpty() ||
        (city && (city->name.isEmpty() || !(city->kilometers >= 0 && city->kilometers < 20'100)))) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const zeph::CityTable table(
        QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size)));
    check(table, {52.5, 13.4});
    check(table, {-90, 180});
    return 0;
}
