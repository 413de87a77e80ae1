// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// The schema of what Nemo's desktop goes by.
inline const QString nemoDesktopSchema = QStringLiteral("org.nemo.desktop");

/// Its setting of whether there are icons on the first monitor, and whether on the others.
inline const QString nemoLayoutKey = QStringLiteral("desktop-layout");

/// A value of that setting, as the tool prints it, in words that mean the same and yet are others,
/// so that Nemo makes its windows anew; absent where they show no icons, and for what is no value
/// of the setting.
std::optional<QString> inOtherWords(const QString &layout);

/// Such a value in its usual words; any other is left as it is.
QString inUsualWords(const QString &layout);

} // namespace zeph
