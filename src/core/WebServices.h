// SPDX-License-Identifier: MIT
#pragma once

#include "core/IntegrationServices.h"

namespace zeph {

class Calendar;
struct Endpoints;
struct FramingContext;
struct Platform;

/// The calls of all web services, each with the service behind it. `gregorian` counts the years of
/// services that know no other calendar. All but `endpoints` outlive the calls.
IntegrationServices makeWebServices(const Platform &platform, const Endpoints &endpoints,
                                    const FramingContext &framing, const Calendar &gregorian);

} // namespace zeph
