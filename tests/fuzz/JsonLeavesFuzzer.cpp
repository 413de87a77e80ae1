// SPDX-License-Identifier: MIT
#include "services/custom/JsonLeaves.h"

#include "base/DescribedError.h"
#include "services/web/Json.h"

#include <algorithm>
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

void checkListing(const QJsonValue &json) {
    const auto leaves = CustomAPI::flatten(json);
    require(leaves.size() <= CustomAPI::listedLeaves);
    for (const JsonLeaf &leaf : leaves) {
        const auto value = CustomAPI::extract(json, leaf.path);
        require(value && CustomAPI::format(*value) == leaf.preview);
    }
    const auto few = CustomAPI::flatten(json, 3, 1);
    require(few.size() <= std::min<std::size_t>(3, leaves.size()));
}

} // namespace

/// The first line is a path, the rest an answer.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const qsizetype end = std::max<qsizetype>(bytes.indexOf('\n'), 0);
    const QString path = QString::fromUtf8(bytes.first(end));
    try {
        const QJsonValue json = json::parse(bytes.sliced(end).toByteArray());
        if (const auto leaf = CustomAPI::extract(json, path)) {
            require(!leaf->isObject() && !leaf->isArray() && !leaf->isUndefined());
            require(!CustomAPI::format(*leaf).isNull() || leaf->isString());
        }
        CustomAPI::format(json);
        checkListing(json);
    } catch (const DescribedError &) {
        return 0; // no JSON
    }
    return 0;
}
