// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/x11/EarlierPictureRecord.h"
#include "support/XTestClient.h"

namespace zeph {

inline const QByteArray kRecordName = "_TAVI_EARLIER_PICTURE";

/// What a run of ours tells of the picture that it keeps; nothing but zeros where there is none.
inline EarlierPictureRecord recordOnRoot(const XTestClient &client) {
    const auto numbers = client.numbers(client.root(), kRecordName);
    return recordIn({numbers.begin(), numbers.end()}).value_or(EarlierPictureRecord());
}

} // namespace zeph
