// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <ostream>

/// Lets a failed expectation show a text instead of its bytes; found beside QString, so global.
inline void PrintTo(const QString &text, std::ostream *out) {
    *out << '"' << text.toStdString() << '"';
}
