// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace zeph {

/// Whether the locale library knows a time zone of that name, such as "Europe/Berlin".
bool isKnownZone(QStringView id);

} // namespace zeph
