// SPDX-License-Identifier: MIT
#include "platform/linux/proc/LinkMessages.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    zeph::LinkListing listing;
    zeph::parseLinkMessages(QByteArrayView(data, static_cast<qsizetype>(size)), 1, listing);
    for (const zeph::LinkCounters &link : listing.links) {
        if (link.name.isEmpty() || link.name.size() > 16) {
            std::abort();
        }
    }
    return 0;
}
