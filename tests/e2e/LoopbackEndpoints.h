// SPDX-License-Identifier: MIT
#pragma once

#include "integrations/web/Endpoints.h"

namespace zeph {

/// All services at `root`, each below its own name.
Endpoints endpointsAt(const QString &root);

} // namespace zeph
