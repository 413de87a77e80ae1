// SPDX-License-Identifier: MIT
#include "adapters/focus/FocusSource.h"

#include <QStringList>

#include <array>
#include <utility>

namespace zeph {

using namespace Qt::StringLiterals;

FocusSource focusSourceFor(const QString &currentDesktop) {
    const std::array<std::pair<QString, FocusSource>, 7> known{{
        {u"KDE"_s, QuietService::notifications},
        {u"XFCE"_s, QuietService::xfconf},
        {u"X-Cinnamon"_s,
         QuietSetting{u"org.cinnamon.desktop.notifications"_s, u"display-notifications"_s, false}},
        {u"Cinnamon"_s,
         QuietSetting{u"org.cinnamon.desktop.notifications"_s, u"display-notifications"_s, false}},
        {u"MATE"_s, QuietSetting{u"org.mate.NotificationDaemon"_s, u"do-not-disturb"_s, true}},
        // It names GNOME as well, but keeps its own switch.
        {u"Budgie"_s, QuietService::notifications},
        {u"GNOME"_s, QuietSetting{u"org.gnome.desktop.notifications"_s, u"show-banners"_s, false}},
    }};
    for (const QString &name : currentDesktop.split(u':')) {
        for (const auto &[desktop, source] : known) {
            if (name.trimmed().compare(desktop, Qt::CaseInsensitive) == 0) {
                return source;
            }
        }
    }
    return QuietService::notifications;
}

} // namespace zeph
