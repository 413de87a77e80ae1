// SPDX-License-Identifier: MIT
#pragma once

#include "services/simple/SimpleCard.h"
#include "services/web/Endpoints.h"
#include "wording/FramingContext.h"

#include <utility>

namespace zeph {

class Clock;
class HttpClient;

/// What the services of one card ask and write with. What is given as a reference outlives the
/// service.
class CardService {
public:
    CardService(HttpClient &client, Endpoints endpoints, const Clock &clock,
                const FramingContext &framing)
        : m_client(client), m_clock(clock), m_framing(framing), m_endpoints(std::move(endpoints)) {}

protected:
    HttpClient &m_client;
    const Clock &m_clock;
    FramingContext m_framing;
    Endpoints m_endpoints;
};

} // namespace zeph
