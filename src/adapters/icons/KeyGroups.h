// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>

#include <optional>
#include <vector>

namespace zeph {

/// One group of a file of keys and values: a line [name], then lines key=value.
struct KeyGroup {
    QByteArray name;
    QMap<QByteArray, QByteArray> values;

    /// A whole number; absent when there is none under this key.
    std::optional<int> number(const QByteArray &key) const;
};

/// The groups in such a file; lines that are neither count for nothing.
std::vector<KeyGroup> keyGroupsIn(const QByteArray &text);

} // namespace zeph
