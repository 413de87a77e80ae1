// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// Makes `folder` for the user alone (0700) when missing, its parents as the user's umask wants
/// them. A folder that is there keeps its mode. False when there is none afterwards.
bool makePrivateFolder(const QString &folder);

} // namespace zeph
