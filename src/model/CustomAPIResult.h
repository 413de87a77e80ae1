// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUuid>

#include <optional>
#include <vector>

namespace zeph {

/// One value read from a custom endpoint, formatted.
struct CustomAPIValue {
    QUuid id;
    QString label;
    QString value;

    bool operator==(const CustomAPIValue &) const = default;
};

/// The outcome of one fetch of a custom endpoint.
struct CustomAPIResult {
    QUuid id;
    QString name;
    std::vector<CustomAPIValue> values;
    std::optional<QString> error;

    bool operator==(const CustomAPIResult &) const = default;
};

} // namespace zeph
