// SPDX-License-Identifier: MIT
#include "services/transfer/TransferredSettings.h"

#include "services/custom/EndpointAddress.h"

#include <QStringList>

namespace zeph {

namespace {

QString openPart(const QString &address) {
    auto url = endpointAddress(address);
    if (!url) {
        return {};
    }
    QStringList names;
    for (const QString &piece : url->query(QUrl::FullyEncoded).split(u'&')) {
        if (piece.contains(u'=')) { // what stands alone may be a key as it is
            names.append(piece.section(u'=', 0, 0) + u'=');
        }
    }
    url->setUserInfo({});
    url->setFragment({});
    url->setQuery(names.isEmpty() ? QString() : names.join(u'&'));
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
