// SPDX-License-Identifier: MIT
#pragma once

#include "services/web/Endpoints.h"

namespace zeph {

/// All services at `root`, each below its own name.
Endpoints endpointsAt(const QString &root);

} // namespace zeph
