// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonArray>
#include <QJsonDocument>

#include <optional>
#include <vector>

namespace zeph {

/// Every element read by `read`, or nothing as soon as one of them can't be read.
template <typename Record>
std::optional<std::vector<Record>> recordsIn(const QJsonArray &array,
                                             std::optional<Record> (*read)(const QJsonValue &)) {
    std::vector<Record> records;
    records.reserve(static_cast<std::size_t>(array.size()));
    for (const QJsonValue element : array) {
        auto record = read(element);
        if (!record) {
            return std::nullopt;
        }
        records.push_back(std::move(*record));
    }
    return records;
}

/// The same for the text of an array; nothing for any other text.
template <typename Record>
std::optional<std::vector<Record>> recordsIn(const QByteArray &json,
                                             std::optional<Record> (*read)(const QJsonValue &)) {
    const QJsonDocument document = QJsonDocument::fromJson(json);
    return document.isArray() ? recordsIn(document.array(), read) : std::nullopt;
}

} // namespace zeph
