// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// True for a tab and every kind of blank, but not for what ends a line.
inline bool isBlank(QChar character) {
    return character == u'\t' || character.category() == QChar::Separator_Space;
}

/// `text` without blanks and tabs at both ends. Newlines stay; `QString::trimmed` takes them too.
inline QString withoutOuterBlanks(const QString &text) {
    qsizetype first = 0;
    qsizetype end = text.size();
    while (first < end && isBlank(text[first])) {
        ++first;
    }
    while (end > first && isBlank(text[end - 1])) {
        --end;
    }
    return text.mid(first, end - first);
}

} // namespace zeph
