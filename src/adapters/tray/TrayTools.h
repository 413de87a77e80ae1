// SPDX-License-Identifier: MIT
#pragma once

#include "ports/StatusBar.h"

#include <QImage>
#include <QPoint>

namespace zeph {

/// What an item of the tray shows.
struct TrayFacts {
    QString symbol;
    QString description; ///< its accessible name
    std::vector<MenuItem> menu;
};

/// How the desktop's panel wants punctuation keys named in a menu that it draws.
enum class TrayKeyNames {
    characters, ///< as the character, such as ","
    words,      ///< as X names it, such as "comma"
};

/// Those that a panel of this desktop reads, by the XDG_CURRENT_DESKTOP of the session: panels of
/// Qt desktops know the characters alone, all others the words alone.
TrayKeyNames trayKeyNamesOf(const QString &currentDesktop);

/// What the tray needs of the program. The functions are set.
struct TrayTools {
    /// Draws a symbol as an Alpha8 mask of `pixels` by `pixels`.
    std::function<QImage(const QString &symbol, int pixels)> drawSymbol;
    /// Opens a menu of our own at a place of the screen, in device pixels, where the desktop does
    /// not draw it.
    std::function<void(const std::vector<MenuItem> &menu, QPoint position)> popUpMenu;
    /// The name by which the desktop's icon themes know the symbol and recolour it; empty where
    /// none does.
    QString iconName = {};
    TrayKeyNames keyNames = TrayKeyNames::words;
};

} // namespace zeph
