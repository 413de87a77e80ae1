// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

namespace zeph {

/// What an application's desktop entry says of it.
struct DesktopEntry {
    QString name;           ///< in the user's language where it is translated
    QString startupWmClass; ///< empty when not given
    QString program;        ///< file name of the program that it starts, without folder
    bool isHidden = false;  ///< deleted by the user, though a file of lower rank exists
    bool isListed = true;   ///< shown in menus

    bool operator==(const DesktopEntry &) const = default;
};

/// The suffixes of translated keys for a locale such as "de_DE.UTF-8@euro", best first:
/// "de_DE@euro", "de_DE", "de@euro", "de". None for "C" and "POSIX".
QStringList desktopEntryLocales(const QString &locale);

/// Reads the bytes of a .desktop file; `locales` as from `desktopEntryLocales`. Absent when they
/// describe no application. Any bytes are safe.
std::optional<DesktopEntry> parseDesktopEntry(const QByteArray &bytes, const QStringList &locales);

} // namespace zeph
