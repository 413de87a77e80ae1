// SPDX-License-Identifier: MIT
#include "adapters/session/open/SessionKinds.h"

#include <QStringList>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

bool isPlasma(const QString &currentDesktop) {
    return currentDesktop.split(u':').contains(u"KDE"_s);
}

} // namespace

PartsKind partsKind(const QString &swaySocket, const QString &currentDesktop) {
    if (!swaySocket.isEmpty()) {
        return PartsKind::sway;
    }
    return isPlasma(currentDesktop) ? PartsKind::kwin : PartsKind::protocol;
}

bool isCinnamon(const QString &currentDesktop) {
    const QStringList names = currentDesktop.split(u':');
    return names.contains(u"X-Cinnamon"_s, Qt::CaseInsensitive) ||
           names.contains(u"Cinnamon"_s, Qt::CaseInsensitive);
}

DesktopKind desktopKind(DisplaySystem displaySystem, const QString &currentDesktop) {
    if (displaySystem == DisplaySystem::xwayland) {
        return DesktopKind::gnome;
    }
    return isPlasma(currentDesktop) ? DesktopKind::plasma : DesktopKind::plain;
}

} // namespace zeph
