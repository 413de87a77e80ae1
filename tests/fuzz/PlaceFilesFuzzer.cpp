// SPDX-License-Identifier: MIT
#include "adapters/places/GlobeOutline.h"
#include "adapters/places/PlaceLine.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const zeph::GlobeOutlines outlines = zeph::parseOutlines(bytes);
    for (const auto &[kind, table] : outlines) {
        for (const zeph::GlobeOutline &outline : table) {
            if (outline.corners.size() < 3) {
                std::abort();
            }
        }
        zeph::outlineAt(outlines, kind, {52.5, 13.4});
    }
    if (zeph::placesIn(bytes).size() > 1) {
        std::abort();
    }
    zeph::positionIn(bytes);
    return 0;
}
