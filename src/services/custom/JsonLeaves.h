// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonValue>
#include <QString>

#include <cstddef>
#include <optional>
#include <vector>

namespace zeph {

/// A value that can be shown, by the path that leads to it.
struct JsonLeaf {
    QString path;
    QString preview; ///< formatted

    bool operator==(const JsonLeaf &) const = default;
};

/// Reading any answer by dotted paths, such as "servers.0.name".
namespace CustomAPI {

inline constexpr std::size_t listedLeaves = 250;
inline constexpr qsizetype listedArrayItems = 5;

/// The leaf at `path`, a null among them; absent where the path leads nowhere or to an object or
/// an array. Empty pieces of a path don't count. A key with a dot can't be reached.
std::optional<QJsonValue> extract(const QJsonValue &json, const QString &path);

/// A leaf as it is shown: whole numbers without decimals, others with two, "yes", "no", "null",
/// or the text itself.
QString format(const QJsonValue &value);

/// All leaves to choose from, depth first and keys in order, up to `maxLeaves` and of each array
/// only the first `maxArrayItems` elements. What no path reaches is left out.
std::vector<JsonLeaf> flatten(const QJsonValue &json, std::size_t maxLeaves = listedLeaves,
                              qsizetype maxArrayItems = listedArrayItems);

} // namespace CustomAPI

} // namespace zeph
