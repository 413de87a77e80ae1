// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/web/AnswerReader.h"

#include <QString>

#include <curl/curl.h>

namespace zeph {

/// How a transfer ended that brought no answer.
struct TransferFailure {
    CURLcode code = CURLE_OK;
    long certificateError = 0; ///< what the check of the certificate chain found; 0 for nothing
    long proxyStatus = 0;      ///< of the proxy's answer, 0 without one
    AnswerReader::Excess excess = AnswerReader::Excess::none;
    qsizetype bodyLimit = 0;
};

/// One plain sentence that names `host` and the cause.
QString describe(const TransferFailure &failure, const QString &host);

} // namespace zeph
