// SPDX-License-Identifier: MIT
#pragma once

#include <QUrl>

namespace zeph {

/// Where people write to with questions: the address that the build was configured with
/// (ZEPH_SUPPORT_URL), empty without one.
QUrl supportPage();

} // namespace zeph
