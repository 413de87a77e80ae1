// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

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

/// Reads the bytes of a .desktop file for a locale such as "de_DE.UTF-8@euro". Absent when they
/// describe no application. Any bytes are safe, any thread.
std::optional<DesktopEntry> parseDesktopEntry(const QByteArray &bytes, const QString &locale);

} // namespace zeph
