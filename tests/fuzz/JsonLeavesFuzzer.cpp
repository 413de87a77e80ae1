// SPDX-License-Identifier: MIT
#include "integrations/custom/JsonLeaves.h"

#include "core/values/DescribedError.h"
#include "integrations/web/Json.h"

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

/// No key is empty or has a dot, and each can be found again, which the library does not manage
/// with a byte order mark at its start: so every leaf can be reached.
bool hasPlainKeys(const QJsonValue &value) {
    if (value.isArray()) {
        const QJsonArray array = value.toArray();
        return std::all_of(array.begin(), array.end(), hasPlainKeys);
    }
    const QJsonObject object = value.toObject();
    for (auto entry = object.begin(); entry != object.end(); ++entry) {
        const QString key = entry.key();
        const bool isPlain = !key.isEmpty() && !key.contains(u'.') && object.find(key) == entry;
        if (!isPlain || !hasPlainKeys(entry.value())) {
            return false;
        }
    }
    return true;
}

void checkListing(const QJsonValue &json) {
    const auto leaves = CustomAPI::flatten(json);
    require(leaves.size() <= CustomAPI::listedLeaves);
    const bool canReachAll = hasPlainKeys(json);
    for (const JsonLeaf &leaf : leaves) {
        const auto value = CustomAPI::extract(json, leaf.path);
        require(!canReachAll || (value && CustomAPI::format(*value) == leaf.preview));
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
