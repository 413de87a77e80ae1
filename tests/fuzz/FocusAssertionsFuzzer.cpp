// SPDX-License-Identifier: MIT
#include "sensing/FocusAssertions.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const zeph::FocusState state = zeph::focusStateIn(bytes);
    const QJsonDocument document = QJsonDocument::fromJson(bytes);
    require((state == zeph::FocusState::unknown) == !document.isObject());
    // How the text is laid out tells nothing, and neither do other keys.
    if (document.isObject()) {
        require(zeph::focusStateIn(document.toJson(QJsonDocument::Compact)) == state);
        QJsonObject object = document.object();
        object.insert(QStringLiteral("another"), QStringLiteral("storeAssertionRecords"));
        require(zeph::focusStateIn(QJsonDocument(object).toJson()) == state);
    }
    return 0;
}
