// SPDX-License-Identifier: MIT
#include "platform/linux/proc/ProcParsers.h"

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
    return 0;
}
