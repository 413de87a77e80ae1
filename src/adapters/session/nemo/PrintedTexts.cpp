// SPDX-License-Identifier: MIT
#include "adapters/session/nemo/PrintedTexts.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString kEmptyList = u"@as []"_s;

/// How long the text in quotes is that `from` begins with; nothing for any other beginning.
qsizetype quotedLength(QStringView from) {
    if (from.isEmpty() || (from.front() != u'\'' && from.front() != u'"')) {
        return 0;
    }
    for (qsizetype i = 1; i < from.size(); ++i) {
        if (from[i] == u'\\') {
            ++i;
        } else if (from[i] == from.front()) {
            return i + 1;
        }
    }
    return 0;
}

} // namespace

std::optional<QStringList> printedTextsIn(const QString &list) {
    if (list == kEmptyList) {
        return QStringList();
    }
    if (!list.startsWith(u'[') || !list.endsWith(u']')) {
        return std::nullopt;
    }
    QStringList texts;
    QStringView rest = QStringView(list).mid(1).chopped(1);
    while (!rest.isEmpty()) {
        const qsizetype length = quotedLength(rest);
        if (length == 0) {
            return std::nullopt;
        }
        texts.append(rest.first(length).toString());
        rest = rest.mid(length);
        if (rest.startsWith(u", ")) {
            rest = rest.mid(2);
        } else if (!rest.isEmpty()) {
            return std::nullopt;
        }
    }
    return texts;
}

QString listOfPrinted(const QStringList &texts) {
    return texts.isEmpty() ? kEmptyList : u'[' + texts.join(u", "_s) + u']';
}

} // namespace zeph
