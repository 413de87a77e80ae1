// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace zeph {

/// The astronomy picture of the day; `imageData` is an encoded image file.
struct APODInfo {
    QString title;
    QString date;
    std::optional<QByteArray> imageData;

    bool operator==(const APODInfo &) const = default;
};

} // namespace zeph
