// SPDX-License-Identifier: MIT
#include "adapters/web/WebAddress.h"

#include <QUrl>

#include <utility>

namespace zeph {

namespace {

// What the domain name system can hold; a longer name would only make messages unreadable.
constexpr qsizetype longestHost = 253;

} // namespace

std::optional<WebAddress> WebAddress::parse(const QUrl &url) {
    CurlUrl parsed(curl_url());
    const QByteArray text = url.toEncoded(QUrl::RemoveFragment);
    if (!parsed || curl_url_set(parsed.get(), CURLUPART_URL, text.constData(), 0) != CURLUE_OK) {
        return std::nullopt;
    }
    return ofTheWeb(std::move(parsed));
}

std::optional<WebAddress> WebAddress::resolved(const QByteArray &location) const {
    // Servers send blanks and letters that ought to be encoded.
    constexpr unsigned int leniency = CURLU_URLENCODE | CURLU_ALLOW_SPACE;
    CurlUrl target(curl_url_dup(m_url.get()));
    if (!target || curl_url_set(target.get(), CURLUPART_URL, location.trimmed().constData(),
                                leniency) != CURLUE_OK) {
        return std::nullopt;
    }
    return ofTheWeb(std::move(target));
}

bool WebAddress::isEncrypted() const {
    return part(CURLUPART_SCHEME) == "https";
}

bool WebAddress::isSameOrigin(const WebAddress &other) const {
    return part(CURLUPART_SCHEME) == other.part(CURLUPART_SCHEME) &&
           part(CURLUPART_HOST).compare(other.part(CURLUPART_HOST), Qt::CaseInsensitive) == 0 &&
           part(CURLUPART_PORT, CURLU_DEFAULT_PORT) ==
               other.part(CURLUPART_PORT, CURLU_DEFAULT_PORT);
}

QString WebAddress::host() const {
    return QString::fromUtf8(part(CURLUPART_HOST));
}

QByteArray WebAddress::text() const {
    return part(CURLUPART_URL);
}

std::optional<WebAddress> WebAddress::ofTheWeb(CurlUrl url) {
    WebAddress address(std::move(url));
    const QByteArray scheme = address.part(CURLUPART_SCHEME);
    const QByteArray host = address.part(CURLUPART_HOST);
    if ((scheme != "http" && scheme != "https") || host.isEmpty() || host.size() > longestHost) {
        return std::nullopt;
    }
    return address;
}

QByteArray WebAddress::part(CURLUPart part, unsigned int flags) const {
    char *text = nullptr;
    if (curl_url_get(m_url.get(), part, &text, flags) != CURLUE_OK) {
        return {};
    }
    const CurlText owned(text);
    return {text};
}

} // namespace zeph
