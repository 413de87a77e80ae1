// SPDX-License-Identifier: MIT
#include "adapters/calendar/plugin/EdsReader.h"

extern "C" __attribute__((visibility("default"))) zeph::EdsSession *
zephMakeEdsSession(zeph::EdsReport &report, const zeph::EdsPacing &pacing) {
    return new zeph::EdsReader(report, pacing);
}
