// SPDX-License-Identifier: MIT
#include "adapters/web/TransferFailure.h"

#include <openssl/x509_vfy.h>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

QString excessSentence(const TransferFailure &failure, const QString &host) {
    if (failure.excess == AnswerReader::Excess::headers) {
        return u"The answer of %1 has too many headers."_s.arg(host);
    }
    constexpr qsizetype mebibyte = qsizetype{1024} * 1024;
    return u"The answer of %1 is larger than %2 MiB."_s.arg(host).arg(failure.bodyLimit / mebibyte);
}

QString certificateSentence(long certificateError, const QString &host) {
    switch (certificateError) {
    case X509_V_OK:
    case X509_V_ERR_UNSPECIFIED: // the library compares the names before it asks for the chain
        return u"The certificate of %1 is for another host."_s.arg(host);
    case X509_V_ERR_CERT_HAS_EXPIRED:
        return u"The certificate of %1 has expired."_s.arg(host);
    case X509_V_ERR_CERT_NOT_YET_VALID:
        return u"The certificate of %1 is not valid yet."_s.arg(host);
    default:
        return u"The certificate of %1 is not trusted."_s.arg(host);
    }
}

QString sentence(CURLcode code) {
    switch (code) {
    case CURLE_COULDNT_RESOLVE_HOST:
        return u"The host %1 could not be found."_s;
    case CURLE_COULDNT_RESOLVE_PROXY:
        return u"The proxy on the way to %1 could not be found."_s;
    case CURLE_COULDNT_CONNECT:
        return u"%1 could not be reached."_s;
    case CURLE_OPERATION_TIMEDOUT:
        return u"%1 did not answer in time."_s;
    case CURLE_ABORTED_BY_CALLBACK:
        return u"The request to %1 was cancelled."_s;
    case CURLE_SSL_CONNECT_ERROR:
        return u"No secure connection to %1 could be made."_s;
    case CURLE_GOT_NOTHING:
    case CURLE_PARTIAL_FILE:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
        return u"%1 ended the connection too early."_s;
    case CURLE_BAD_CONTENT_ENCODING:
        return u"The answer of %1 could not be decompressed."_s;
    case CURLE_OUT_OF_MEMORY: // what the library says to a header line without end
    case CURLE_WEIRD_SERVER_REPLY:
    case CURLE_UNSUPPORTED_PROTOCOL: // no HTTP, or one before 1.0
    case CURLE_HTTP2:
    case CURLE_HTTP2_STREAM:
        return u"The answer of %1 could not be understood."_s;
    default:
        return u"The request to %1 failed."_s;
    }
}

} // namespace

QString describe(const TransferFailure &failure, const QString &host) {
    if (failure.excess != AnswerReader::Excess::none) {
        return excessSentence(failure, host);
    }
    constexpr long firstRefusal = 400;
    if (failure.proxyStatus >= firstRefusal) {
        return u"The proxy refused the way to %1."_s.arg(host);
    }
    if (failure.code == CURLE_PEER_FAILED_VERIFICATION) {
        return certificateSentence(failure.certificateError, host);
    }
    return sentence(failure.code).arg(host);
}

} // namespace zeph
