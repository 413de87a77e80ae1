// SPDX-License-Identifier: MIT
#pragma once

#include "services/refresh/IntegrationServices.h"

namespace zeph {

struct Endpoints;
struct FramingContext;
struct Platform;

/// The calls of all web services, each with the service behind it. All but `endpoints` outlive the
/// calls.
IntegrationServices makeWebServices(const Platform &platform, const Endpoints &endpoints,
                                    const FramingContext &framing);

} // namespace zeph
