// SPDX-License-Identifier: MIT
#include "services/simple/rss/WideTags.h"

#include <algorithm>
#include <array>

namespace zeph {

namespace {

/// What may stand in a tag outside of quotes. Letters beyond ASCII may be part of a name.
bool canBeInTag(QChar character) {
    constexpr QStringView marks = u"_-.:=/ \t\r\n";
    return character.unicode() >= 0x80 || character.isLetterOrNumber() || marks.contains(character);
}

/// Whether a start tag with too many attributes begins at `position`, just behind a "<".
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

struct Section {
    QStringView begin;
    QStringView end;
};

/// What holds text in which "<" begins nothing.
constexpr std::array sections = {Section{u"<![CDATA[", u"]]>"}, Section{u"<!--", u"-->"},
                                 Section{u"<?", u"?>"}};

/// Behind the section that begins at `start`; `start` where none does.
qsizetype sectionEnd(QStringView xml, qsizetype start) {
    for (const Section &section : sections) {
        if (xml.sliced(start).startsWith(section.begin)) {
            const qsizetype end = xml.indexOf(section.end, start + section.begin.size());
            return end < 0 ? xml.size() : end + section.end.size();
        }
    }
    return start;
}

} // namespace

qsizetype lengthBeforeWideTag(QStringView xml) {
    // The quotes of a DTD may hold what looks like the beginning of a section. Those of a tag can't
    // hold a "<".
    bool hasSections = true;
    for (qsizetype start = xml.indexOf(u'<'); start >= 0; start = xml.indexOf(u'<', start)) {
        const qsizetype end = hasSections ? sectionEnd(xml, start) : start;
        if (end == start && isWideTag(xml, start + 1)) {
            return start;
        }
        hasSections = hasSections && (end > start || !xml.sliced(start).startsWith(u"<!"));
        start = std::max(end, start + 1);
    }
    return xml.size();
}

} // namespace zeph
