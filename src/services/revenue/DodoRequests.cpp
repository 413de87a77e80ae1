// SPDX-License-Identifier: MIT
#include "services/revenue/DodoRequests.h"

#include <QUrl>

using namespace Qt::StringLiterals;

namespace zeph::DodoRequests {

QString brandSuffix(const QString &brandID) {
    const QString brand = brandID.trimmed();
    if (brand.isEmpty() || !brand.isValidUtf16()) {
        return {};
    }
    return u"&brand_id="_s + QString::fromLatin1(QUrl::toPercentEncoding(brand));
}

QString subscriptionsUrl(const QString &root, int page, const QString &brandSuffix) {
    return root + u"/subscriptions?status=active&page_size=100&page_number="_s +
           QString::number(page) + brandSuffix;
}

QString paymentsUrl(const QString &root, int page, const QString &brandSuffix) {
    return root + u"/payments?status=succeeded&page_size=100&page_number="_s +
           QString::number(page) + brandSuffix;
}

} // namespace zeph::DodoRequests
