// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// The first letter of each word in upper case, all others in lower case. A word is a run of
/// letters, digits, marks and apostrophes, so "wrapped-bitcoin" has two.
inline QString capitalized(const QString &text) {
    QString result = text.toLower();
    bool isStarted = false;
    for (QChar &character : result) {
        const bool isPart =
            character.isLetterOrNumber() || character.isMark() || character == u'\'';
        if (isPart && !isStarted) {
            character = character.toUpper();
        }
        isStarted = isPart;
    }
    return result;
}

} // namespace zeph
