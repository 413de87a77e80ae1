// SPDX-License-Identifier: MIT
#include "adapters/tray/TrayTools.h"

#include <QStringList>

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

TrayKeyNames trayKeyNamesOf(const QString &currentDesktop) {
    const QStringList names = currentDesktop.split(u':');
    const bool isOfQt = std::any_of(names.begin(), names.end(), [](const QString &name) {
        return name.compare(u"KDE"_s, Qt::CaseInsensitive) == 0 ||
               name.compare(u"LXQt"_s, Qt::CaseInsensitive) == 0;
    });
    return isOfQt ? TrayKeyNames::characters : TrayKeyNames::words;
}

} // namespace zeph
