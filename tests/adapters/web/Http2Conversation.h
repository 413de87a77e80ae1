// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/web/LoopbackConnection.h"

#include <functional>

namespace zeph {

/// Speaks HTTP/2 with a client until it goes, and answers each request as `reply` says. Bodies of
/// requests are not read. Names of headers are lower-cased.
void converseInHttp2(LoopbackConnection &connection,
                     const std::function<HttpResponse(const ReceivedRequest &received)> &reply);

} // namespace zeph
