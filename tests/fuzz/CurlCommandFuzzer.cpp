// SPDX-License-Identifier: MIT
#include "services/custom/CurlCommand.h"

#include "base/Blanks.h"

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

bool isWholeSide(const QString &text) {
    return !text.isEmpty() && withoutOuterBlanks(text) == text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QString text = QString::fromUtf8(QByteArrayView(data, static_cast<qsizetype>(size)));
    for (const QString &token : CustomAPI::tokenizeCurl(text)) {
        require(!token.isEmpty());
    }
    if (const auto command = CustomAPI::parseCurl(text)) {
        require(!command->url.isEmpty());
        for (const HTTPHeaderEntry &header : command->headers) {
            require(!header.id.isNull() && !header.name.contains(u':'));
            require(isWholeSide(header.name) && isWholeSide(header.value));
        }
    }
    // Whatever stands in single quotes is one word as it is.
    if (!text.isEmpty() && !text.contains(u'\'')) {
        require(CustomAPI::tokenizeCurl(u'\'' + text + u'\'') == QStringList{text});
    }
    return 0;
}
