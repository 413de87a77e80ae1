// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/web/AnswerReader.h"
#include "adapters/web/CurlHandles.h"

class QDeadlineTimer;

namespace zeph {

class CancelSwitch;
class SharedLookups;
struct HttpOptions;
struct WebRequest;

/// One request and its answer, redirects not followed. The request outlives it.
class CurlTransfer {
public:
    /// Throws `TransportError` for a request that can't be sent.
    CurlTransfer(const WebRequest &request, const HttpOptions &options,
                 const SharedLookups &lookups);
    CurlTransfer(const CurlTransfer &) = delete;
    CurlTransfer &operator=(const CurlTransfer &) = delete;

    /// Blocks until the whole answer is there; call once. Throws `TransportError`, at the deadline
    /// and when cancelled too. `multi` has to be woken by `cancelSwitch`.
    HttpResponse run(CURLM *multi, const QDeadlineTimer &deadline,
                     const CancelSwitch &cancelSwitch);

private:
    void setUp(const HttpOptions &options, const SharedLookups &lookups);
    void setBody();
    CURLcode wait(CURLM *multi, const QDeadlineTimer &deadline,
                  const CancelSwitch &cancelSwitch) const;
    [[noreturn]] void fail(CURLcode code) const;
    long info(CURLINFO kind) const;

    const WebRequest &m_request;
    qsizetype m_bodyLimit;
    AnswerReader m_reader;
    CurlList m_headers;
    CurlEasy m_easy;
};

} // namespace zeph
