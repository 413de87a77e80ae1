// SPDX-License-Identifier: MIT
#include "adapters/places/ZoneTable.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

// What the rest of the program relies on, whatever the bytes were. The comparisons fail for what
// is no number as well.
void check(const std::optional<zeph::Coordinate> &city) {
    if (city && !(city->latitude >= -90 && city->latitude <= 90 && city->longitude >= -180 &&
                  city->longitude <= 180)) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    check(zeph::parseTablePosition(bytes));
    check(zeph::principalCity(bytes, "Europe/Berlin"));
    // The zone that the first line names, so that the lines after it are compared with one that
    // comes up.
    const QByteArrayView line = bytes.first(qMax<qsizetype>(0, bytes.indexOf('\n')));
    check(zeph::principalCity(bytes, line.sliced(line.lastIndexOf('\t') + 1)));
    return 0;
}
