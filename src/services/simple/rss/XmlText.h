// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace zeph {

struct XmlText {
    QString text;
    bool isWhole = true; ///< false when it ends before bytes that the encoding does not allow
};

/// The text of an XML file by its byte order mark, else by its declaration, else as UTF-8. Absent
/// for an encoding that is not known. A declaration of 16 or 32 bits that is itself written in 8
/// is wrong, and the file is read as UTF-8.
std::optional<XmlText> xmlText(const QByteArray &bytes);

} // namespace zeph
