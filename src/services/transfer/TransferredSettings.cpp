// SPDX-License-Identifier: MIT
#include "services/transfer/TransferredSettings.h"

#include "services/custom/EndpointAddress.h"

#include <QUrlQuery>

namespace zeph {

namespace {

QString openPart(const QString &address) {
    auto url = endpointAddress(address);
    if (!url) {
        return {};
    }
    QUrlQuery query;
    for (const auto &[name, value] : QUrlQuery(*url).queryItems(QUrl::FullyEncoded)) {
        query.addQueryItem(name, {});
    }
    url->setUserInfo({});
    url->setFragment({});
    url->setQuery(query.isEmpty() ? QString() : query.query(QUrl::FullyEncoded));
    return url->toString(QUrl::FullyEncoded);
}

} // namespace

CustomAPIConfig withoutSecrets(const CustomAPIConfig &endpoint) {
    CustomAPIConfig open = endpoint;
    open.urlString = openPart(endpoint.urlString);
    for (HTTPHeaderEntry &header : open.headers) {
        header.value.clear();
    }
    return open;
}

} // namespace zeph
