// SPDX-License-Identifier: MIT
#pragma once

namespace zeph {

class HttpClient;
struct HttpOptions;

/// The one function of the plug-in, named `zephMakeHttpClient`; the caller deletes the client.
/// Throws `TransportError`.
using MakeHttpClient = HttpClient *(*)(const HttpOptions &options);

} // namespace zeph
