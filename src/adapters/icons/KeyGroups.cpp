// SPDX-License-Identifier: MIT
#include "adapters/icons/KeyGroups.h"

namespace zeph {

std::optional<int> KeyGroup::number(const QByteArray &key) const {
    bool isNumber = false;
    const int value = values.value(key).toInt(&isNumber);
    return isNumber ? std::optional(value) : std::nullopt;
}

std::vector<KeyGroup> keyGroupsIn(const QByteArray &text) {
    std::vector<KeyGroup> groups;
    for (const QByteArray &raw : text.split('\n')) {
        const QByteArray line = raw.trimmed();
        const qsizetype sign = line.indexOf('=');
        if (line.startsWith('[') && line.endsWith(']')) {
            groups.push_back({line.mid(1, line.size() - 2), {}});
        } else if (sign > 0 && !groups.empty() && !line.startsWith('#')) {
            groups.back().values.insert(line.left(sign).trimmed(), line.mid(sign + 1).trimmed());
        }
    }
    return groups;
}

} // namespace zeph
