// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUuid>

#include <vector>

namespace zeph {

/// A header that goes with every request to a custom endpoint; its value may be a secret.
struct HTTPHeaderEntry {
    QUuid id;
    QString name;
    QString value;

    bool operator==(const HTTPHeaderEntry &) const = default;
};

/// A value that is picked from the answer by its dotted path.
struct CustomAPIField {
    QUuid id;
    QString label;
    QString jsonPath;

    bool operator==(const CustomAPIField &) const = default;
};

/// One custom endpoint that answers in JSON.
struct CustomAPIConfig {
    QUuid id;
    QString name;
    QString urlString;
    std::vector<HTTPHeaderEntry> headers;
    std::vector<CustomAPIField> fields;

    bool operator==(const CustomAPIConfig &) const = default;
};

} // namespace zeph
