// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

namespace zeph {

/// The locale library's name for the user's choice in one category of the environment, such as
/// "LC_TIME": LC_ALL first, then the category, then LANG. No choice, "C" and "POSIX" read as
/// "en_001": English words, metric units, weeks from Monday.
QByteArray userLocale(const char *category);

/// `locale` as the locale library's name, or the user's choice in `category` when it is empty.
QByteArray localeOrUsers(const QString &locale, const char *category);

} // namespace zeph
