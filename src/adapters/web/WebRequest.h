// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/web/WebAddress.h"
#include "ports/HttpClient.h"

#include <QByteArray>

#include <vector>

namespace zeph {

/// What is asked of one address; a redirect turns it into what is asked of the next.
struct WebRequest {
    WebAddress address;
    QByteArray method;
    std::vector<HttpHeader> headers;
    QByteArray body;
};

} // namespace zeph
