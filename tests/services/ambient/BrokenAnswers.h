// SPDX-License-Identifier: MIT
#pragma once

#include "support/FakeHttpClient.h"
#include "support/Fixture.h"

#include <vector>

namespace zeph {

/// A way in which a service can fail.
struct BrokenAnswer {
    const char *name;
    FakeHttpClient::Handler handler;
};

/// What no service of the surroundings may take for an answer.
inline std::vector<BrokenAnswer> brokenAnswers() {
    const auto page = [](int status, const QByteArray &body) {
        return [status, body](const HttpRequest &) { return HttpResponse{status, {}, body}; };
    };
    return {
        {"no way there",
         [](const HttpRequest &) -> HttpResponse {
             throw TransportError(QStringLiteral("The server could not be reached."));
         }},
        {"refused", page(401, R"({"error":"no"})")},
        {"HTML of a gateway", page(502, fixture("bad-gateway.html"))},
        {"HTML that calls itself well", page(200, fixture("bad-gateway.html"))},
        {"nothing", page(200, "")},
        {"no content", page(204, "")},
        {"half an answer", page(200, R"({"current":{"us_aqi":1)")},
        {"null", page(200, "null")},
        {"a text", page(200, R"("fine")")},
        {"a number", page(200, "42")},
        {"an empty list", page(200, "[]")},
        {"an empty object", page(200, "{}")},
        {"a list of lists", page(200, "[[1]]")},
    };
}

} // namespace zeph
