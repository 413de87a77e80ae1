// SPDX-License-Identifier: MIT
#include "services/transfer/SettingsFileReader.h"

#include <QUrl>

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace {

using namespace zeph;

void require(bool condition) {
    if (!condition) {
        std::abort();
    }
}

/// Nothing that may be secret has come in.
void requireOpen(const CustomAPIConfig &endpoint) {
    const QUrl url(endpoint.urlString, QUrl::StrictMode);
    require(url.userInfo().isEmpty() && !url.hasFragment());
    for (const QString &piece : url.query(QUrl::FullyEncoded).split(u'&', Qt::SkipEmptyParts)) {
        require(piece.endsWith(u'='));
    }
    for (const HTTPHeaderEntry &header : endpoint.headers) {
        require(header.value.isEmpty());
    }
    require(withoutSecrets(endpoint) == endpoint);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const auto bytes =
        QByteArray(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    const auto read = SettingsFile::read(bytes);
    if (const auto *const sentence = std::get_if<QString>(&read)) {
        require(sentence->endsWith(u'.'));
        return 0;
    }
    const auto &settings = std::get<TransferredSettings>(read);
    if (const auto dim = settings.preferences.transparentDim) {
        require(*dim >= 0 && *dim <= 1);
    }
    for (const CustomAPIConfig &endpoint : settings.endpoints) {
        requireOpen(endpoint);
    }
    return 0;
}
