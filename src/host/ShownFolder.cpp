// SPDX-License-Identifier: MIT
#include "host/ShownFolder.h"

namespace zeph {

QString shownFolder(const QByteArray &path, const QByteArray &home) {
    if (home.size() > 1 && path.startsWith(home + '/')) {
        return u'~' + QString::fromUtf8(path.sliced(home.size()));
    }
    return QString::fromUtf8(path);
}

} // namespace zeph
