// SPDX-License-Identifier: MIT
#include "adapters/desktop/NemoLayout.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// What Nemo reads are the two words before it.
const QString kOtherEnd = u"::'"_s;

} // namespace

std::optional<QString> inOtherWords(const QString &layout) {
    static const QStringList kShowsIcons{u"'true::false'"_s, u"'true::true'"_s, u"'false::true'"_s};
    return kShowsIcons.contains(layout) ? std::optional(layout.chopped(1) + kOtherEnd)
                                        : std::nullopt;
}

QString inUsualWords(const QString &layout) {
    return layout.endsWith(kOtherEnd) ? layout.chopped(kOtherEnd.size()) + u'\'' : layout;
}

} // namespace zeph
