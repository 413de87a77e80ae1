// SPDX-License-Identifier: MIT
#pragma once

#include "services/accounts/CustomAPIConfig.h"

#include <QStringList>

#include <optional>

namespace zeph {

/// What of a cURL command line counts for a GET.
struct CurlCommand {
    QString url;
    std::vector<HTTPHeaderEntry> headers; ///< each with a new identity
};

namespace CustomAPI {

/// The words of a command line, read as a shell does as far as quotes, escapes and continued lines
/// go. A carriage return is an ordinary character and takes the newline after it along.
QStringList tokenizeCurl(const QString &text);

/// The address and the headers, in order; method, body and all else are left out. Absent without
/// an address.
std::optional<CurlCommand> parseCurl(const QString &text);

} // namespace CustomAPI

} // namespace zeph
