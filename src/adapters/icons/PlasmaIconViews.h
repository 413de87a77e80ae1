// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/icons/DesktopIcons.h"

#include <QString>
#include <QStringList>

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace zeph {

/// A folder that one of Plasma's desktops shows: its arrangement, and which of its entries are
/// there.
struct PlasmaIconView {
    /// Plasma's own numbers.
    enum class Filter { none, onlyMatching, notMatching };

    QString folder;                     ///< its address; the Desktop is "desktop:/"
    DisplayIcons icons;                 ///< none yet
    std::map<QString, IconCell> places; ///< of entries that the user arranged, by name
    Filter filter = Filter::none;
    QStringList patterns;    ///< of names, with wildcards
    std::set<QString> named; ///< entries of which it is known on which display they are
    bool isOfNamed = false;  ///< they are on this one, and others are not; else the other way round
};

/// The room of an icon where nothing else is known.
QSizeF plasmaUsualCell();

/// Prints what Plasma shows in the activity that is the current one, for `plasmaIconViewsIn`.
QString plasmaIconsScript();

/// What that printed. Absent for anything else, and from a shell without desktops, which is one
/// that is still starting.
std::optional<std::vector<PlasmaIconView>> plasmaIconViewsIn(const QByteArray &printed);

/// The icons of a view. `entries` are the names in its folder; where nobody could list it, the
/// icons are those that the user arranged.
DisplayIcons plasmaIconsOf(const PlasmaIconView &view, const std::optional<QStringList> &entries);

} // namespace zeph
