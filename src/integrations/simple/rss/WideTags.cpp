// SPDX-License-Identifier: MIT
#include "integrations/simple/rss/WideTags.h"

namespace zeph {

namespace {

/// What may stand in a tag outside of quotes. Letters beyond ASCII may be part of a name.
bool canBeInTag(QChar character) {
    constexpr QStringView marks = u"_-.:=/ \t\r\n";
    return character.unicode() >= 0x80 || character.isLetterOrNumber() || marks.contains(character);
}

/// Whether a start tag with too many attributes begins at `position`, just behind a "<". Without
/// looking at what surrounds it: in CDATA, too, text that reads like one counts.
bool isWideTag(QStringView xml, qsizetype position) {
    qsizetype attributes = 0;
    QChar quote;
    for (; position < xml.size() && xml[position] != u'<'; ++position) {
        const QChar character = xml[position];
        if (!quote.isNull()) {
            quote = character == quote ? QChar() : quote;
        } else if (character == u'"' || character == u'\'') {
            quote = character;
        } else if (!canBeInTag(character)) {
            return false; // ">" among them
        } else if (character == u'=' && ++attributes > mostAttributes) {
            return true;
        }
    }
    return false;
}

} // namespace

qsizetype lengthBeforeWideTag(QStringView xml) {
    for (qsizetype start = xml.indexOf(u'<'); start >= 0; start = xml.indexOf(u'<', start + 1)) {
        if (isWideTag(xml, start + 1)) {
            return start;
        }
    }
    return xml.size();
}

} // namespace zeph
