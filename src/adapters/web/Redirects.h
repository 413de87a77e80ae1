// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

struct HttpResponse;
struct WebRequest;

/// Turns `request` into the one that `response` sends it on to; false when the response is the
/// answer. Nothing the caller set goes to another origin. Throws `TransportError` for a way that
/// is not taken.
bool followRedirect(WebRequest &request, const HttpResponse &response);

} // namespace zeph
