// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace zeph {

/// What a display says of itself in its EDID block; each may be empty.
struct EdidWords {
    QString manufacturer; ///< the three letters of the registry of makers, such as "DEL"
    QString model;
    QString serialNumber; ///< the text, else the number unless that is 0

    bool operator==(const EdidWords &) const = default;
};

/// The words in the first block of an EDID; none where it is none.
EdidWords readEdid(const QByteArray &bytes);

} // namespace zeph
