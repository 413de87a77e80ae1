// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace zeph {

/// One package as the package service names it, "name;version;arch;source".
struct PackageId {
    QString name;
    QString version;
    QString architecture;

    bool operator==(const PackageId &) const = default;
};

/// Absent for a text of another form.
std::optional<PackageId> parsePackageId(const QString &text);

/// The version as its maker counts, without what packagers add before and behind it: "0.2.0" for
/// "1:0.2.0-3+deb12u1".
QString makersVersion(const QString &version);

/// Whether a package of version `packaged` holds the program's version `own`, to which packagers
/// may have added something: "1:0.2.0+dfsg-1" holds "0.2.0".
bool holdsVersion(const QString &packaged, const QString &own);

/// How to call the newer of two versions: by the maker's number, unless that is the same for both.
QString newerVersionName(const QString &newer, const QString &older);

} // namespace zeph
