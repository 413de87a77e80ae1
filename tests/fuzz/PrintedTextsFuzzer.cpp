// SPDX-License-Identifier: MIT
#include "adapters/session/nemo/PrintedTexts.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const auto list =
        QString::fromUtf8(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const auto texts = zeph::printedTextsIn(list);
    // What is written back has all that was read.
    if (texts && zeph::printedTextsIn(zeph::listOfPrinted(*texts)) != texts) {
        std::abort();
    }
    return 0;
}
