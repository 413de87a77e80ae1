// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/web/CurlHandles.h"

class QByteArray;

namespace zeph {

struct WebRequest;

/// The request's headers in the form that the library takes. What frames a message is the
/// library's to say and left out; `userAgent` stands in where the caller gave none. Throws
/// `TransportError` for a method, name or value that would end its line.
CurlList headerLines(const WebRequest &request, const QByteArray &userAgent);

} // namespace zeph
