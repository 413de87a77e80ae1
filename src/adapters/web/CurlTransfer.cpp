// SPDX-License-Identifier: MIT
#include "adapters/web/CurlTransfer.h"

#include "adapters/web/CancelSwitch.h"
#include "adapters/web/HttpOptions.h"
#include "adapters/web/RequestHeaders.h"
#include "adapters/web/SharedLookups.h"
#include "adapters/web/TransferFailure.h"
#include "adapters/web/WebRequest.h"

#include <QDeadlineTimer>
#include <QFile>

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

/// Nothing is sent with less than what was asked for: a check of certificates that could not be
/// switched on, say.
template <typename Value>
void set(CURL *easy, CURLoption option, Value value) {
    if (curl_easy_setopt(easy, option, value) != CURLE_OK) {
        throw TransportError(u"The request could not be prepared."_s);
    }
}

void setTrust(CURL *easy, const QString &authoritiesFile) {
    set(easy, CURLOPT_SSL_VERIFYPEER, 1L);
    set(easy, CURLOPT_SSL_VERIFYHOST, 2L); // the name has to match too
    set(easy, CURLOPT_SSLVERSION, long{CURL_SSLVERSION_TLSv1_2});
    const char *const none = nullptr;
    if (!authoritiesFile.isEmpty()) {
        set(easy, CURLOPT_CAINFO, QFile::encodeName(authoritiesFile).constData());
        set(easy, CURLOPT_CAPATH, none);
    } else if (curl_version_info(CURLVERSION_NOW)->capath != nullptr) {
        // The folder holds the same certificates as the file, of which each connection would read
        // all 140; in the folder it looks up the one it needs.
        set(easy, CURLOPT_CAINFO, none);
    }
}

/// A transfer that takes part in a multi handle, until the end of the scope.
class Attachment {
public:
    Attachment(CURLM *multi, CURL *easy) : m_multi(multi), m_easy(easy) {
        if (curl_multi_add_handle(multi, easy) != CURLM_OK) {
            throw TransportError(u"The request could not be prepared."_s);
        }
    }
    ~Attachment() { curl_multi_remove_handle(m_multi, m_easy); }
    Attachment(const Attachment &) = delete;
    Attachment &operator=(const Attachment &) = delete;

private:
    CURLM *m_multi;
    CURL *m_easy;
};

} // namespace

CurlTransfer::CurlTransfer(const WebRequest &request, const HttpOptions &options,
                           const SharedLookups &lookups)
    : m_request(request),
      m_bodyLimit(options.bodyLimit),
      m_reader(options.bodyLimit),
      m_easy(curl_easy_init()) {
    if (!m_easy) {
        throw TransportError(u"The request could not be prepared."_s);
    }
    setUp(options, lookups);
    setTrust(m_easy.get(), options.authoritiesFile);
    setBody();
    m_headers = headerLines(m_request, options.userAgent);
    set(m_easy.get(), CURLOPT_HTTPHEADER, m_headers.get());
}

void CurlTransfer::setUp(const HttpOptions &options, const SharedLookups &lookups) {
    CURL *easy = m_easy.get();
    set(easy, CURLOPT_CURLU, m_request.address.handle());
    set(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    set(easy, CURLOPT_FOLLOWLOCATION, 0L);
    set(easy, CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_2TLS});
    set(easy, CURLOPT_ACCEPT_ENCODING, ""); // all that the library can decode
    set(easy, CURLOPT_SHARE, lookups.handle());
    set(easy, CURLOPT_NOSIGNAL, 1L);
    // The library's own limits would only add second deadlines to ours.
    set(easy, CURLOPT_CONNECTTIMEOUT_MS, 24L * 60 * 60 * 1000);
    // A look-up that hangs is left to itself instead of being waited for.
    set(easy, CURLOPT_QUICK_EXIT, 1L);
    set(easy, CURLOPT_HEADEROPT, long{CURLHEADER_SEPARATE}); // none of ours for the proxy
    set(easy, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    set(easy, CURLOPT_HEADERFUNCTION, &AnswerReader::takeHeaderLine);
    set(easy, CURLOPT_HEADERDATA, &m_reader);
    set(easy, CURLOPT_WRITEFUNCTION, &AnswerReader::takeBody);
    set(easy, CURLOPT_WRITEDATA, &m_reader);
    if (m_request.method != "HEAD") { // an answer to HEAD tells the length of a body that it lacks
        set(easy, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(options.bodyLimit));
    }
}

void CurlTransfer::setBody() {
    CURL *easy = m_easy.get();
    const QByteArray &method = m_request.method;
    if (method == "HEAD") {
        set(easy, CURLOPT_NOBODY, 1L);
        return;
    }
    if (!m_request.body.isEmpty() || method == "POST" || method == "PUT" || method == "PATCH") {
        set(easy, CURLOPT_POST, 1L);
        set(easy, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(m_request.body.size()));
        set(easy, CURLOPT_POSTFIELDS, m_request.body.constData());
    }
    set(easy, CURLOPT_CUSTOMREQUEST, method.constData());
}

HttpResponse CurlTransfer::run(CURLM *multi, const QDeadlineTimer &deadline,
                               const CancelSwitch &cancelSwitch) {
    const Attachment attachment(multi, m_easy.get());
    const CURLcode code = wait(multi, deadline, cancelSwitch);
    if (code != CURLE_OK) {
        fail(code);
    }
    HttpResponse response = m_reader.take();
    response.status = static_cast<int>(info(CURLINFO_RESPONSE_CODE));
    return response;
}

CURLcode CurlTransfer::wait(CURLM *multi, const QDeadlineTimer &deadline,
                            const CancelSwitch &cancelSwitch) const {
    // Rather than sleeping forever should the library forget a timer of its own.
    constexpr qint64 longestSleep = 10'000;
    while (true) {
        if (cancelSwitch.isCancelled()) {
            return CURLE_ABORTED_BY_CALLBACK;
        }
        if (deadline.hasExpired()) {
            return CURLE_OPERATION_TIMEDOUT;
        }
        int running = 0;
        if (curl_multi_perform(multi, &running) != CURLM_OK) {
            return CURLE_FAILED_INIT;
        }
        int queued = 0;
        if (const CURLMsg *message = curl_multi_info_read(multi, &queued)) {
            return message->data.result;
        }
        const qint64 sleep = std::clamp<qint64>(deadline.remainingTime(), 0, longestSleep);
        if (curl_multi_poll(multi, nullptr, 0, static_cast<int>(sleep), nullptr) != CURLM_OK) {
            return CURLE_FAILED_INIT;
        }
    }
}

void CurlTransfer::fail(CURLcode code) const {
    const bool isTooLarge = code == CURLE_FILESIZE_EXCEEDED;
    const TransferFailure failure{
        .code = code,
        .certificateError = info(CURLINFO_SSL_VERIFYRESULT),
        .proxyStatus = info(CURLINFO_HTTP_CONNECTCODE),
        .excess = isTooLarge ? AnswerReader::Excess::body : m_reader.excess(),
        .bodyLimit = m_bodyLimit,
    };
    throw TransportError(describe(failure, m_request.address.host()));
}

long CurlTransfer::info(CURLINFO kind) const {
    long value = 0;
    curl_easy_getinfo(m_easy.get(), kind, &value);
    return value;
}

} // namespace zeph
