// SPDX-License-Identifier: MIT
#include "adapters/web/RequestHeaders.h"

#include "adapters/web/WebRequest.h"

#include <QByteArrayList>

#include <algorithm>
#include <array>
#include <string_view>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr std::array framing = {"connection", "content-length",    "expect", "keep-alive", "te",
                                "trailer",    "transfer-encoding", "upgrade"};

bool isTokenCharacter(char character) {
    constexpr std::string_view marks = "!#$%&'*+-.^_`|~";
    return (character >= '0' && character <= '9') || (character >= 'a' && character <= 'z') ||
           (character >= 'A' && character <= 'Z') ||
           marks.find(character) != std::string_view::npos;
}

bool isToken(const QByteArray &text) {
    return !text.isEmpty() && std::all_of(text.begin(), text.end(), isTokenCharacter);
}

bool isValue(const QByteArray &text) {
    return std::none_of(text.begin(), text.end(), [](char character) {
        return character == '\r' || character == '\n' || character == '\0';
    });
}

bool isFraming(const QByteArray &name) {
    const QByteArray lowered = name.toLower();
    return std::any_of(framing.begin(), framing.end(),
                       [&](const char *word) { return lowered == word; });
}

QByteArray lineOf(const HttpHeader &header) {
    const QByteArray value = header.value.trimmed();
    // The library takes a name with a colon and nothing after it as one to leave out.
    return value.isEmpty() ? header.name + ';' : header.name + ": " + value;
}

void append(CurlList &list, const QByteArray &line) {
    curl_slist *longer = curl_slist_append(list.get(), line.constData());
    if (longer == nullptr) {
        throw TransportError(u"The request could not be prepared."_s);
    }
    list.release(); // NOLINT(bugprone-unused-return-value): `longer` has it as its head
    list.reset(longer);
}

} // namespace

CurlList headerLines(const WebRequest &request, const QByteArray &userAgent) {
    bool hasUserAgent = false;
    bool hasContentType = false;
    bool isSendable = isToken(request.method);
    CurlList list;
    for (const HttpHeader &header : request.headers) {
        isSendable = isSendable && isToken(header.name) && isValue(header.value);
        hasUserAgent |= header.name.compare("User-Agent", Qt::CaseInsensitive) == 0;
        hasContentType |= header.name.compare("Content-Type", Qt::CaseInsensitive) == 0;
        if (isSendable && !isFraming(header.name)) {
            append(list, lineOf(header));
        }
    }
    if (!isSendable) {
        throw TransportError(
            u"The request to %1 has a header that can't be sent."_s.arg(request.address.host()));
    }
    if (!hasUserAgent) {
        append(list, "User-Agent: " + userAgent);
    }
    if (!hasContentType) {
        append(list, "Content-Type:"); // or the library takes every body for a form
    }
    append(list, "Expect:"); // or it waits a second before a large body
    return list;
}

} // namespace zeph
