// SPDX-License-Identifier: MIT
#pragma once

#include "ports/HttpClient.h"

#include <string>

namespace zeph {

/// All that a service sees of a request, one line for the address and one for each header, so that
/// a whole request is compared at once.
inline std::string requestText(const HttpRequest &request) {
    QByteArray text = request.method + ' ' + request.url.toEncoded();
    for (const HttpHeader &header : request.headers) {
        text += '\n' + header.name + ": " + header.value;
    }
    if (!request.body.isEmpty()) {
        text += "\n\n" + request.body;
    }
    return text.toStdString();
}

} // namespace zeph
