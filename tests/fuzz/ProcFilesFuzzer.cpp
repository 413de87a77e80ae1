// SPDX-License-Identifier: MIT
#include "adapters/kernel/ProcParsers.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    zeph::parseStatTicks(bytes);
    zeph::parseBootTime(bytes);
    const auto memory = zeph::parseMemoryInfo(bytes);
    if (memory && memory->used > memory->total) {
        std::abort();
    }
    for (const zeph::LinkCounters &link :
         zeph::parseLinks(bytes).value_or(std::vector<zeph::LinkCounters>())) {
        if (link.name.isEmpty() || link.name.contains(u':')) {
            std::abort();
        }
    }
    return 0;
}
