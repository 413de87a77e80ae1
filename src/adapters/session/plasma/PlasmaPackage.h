// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace zeph {

/// Where the program has its wallpaper for Plasma: beside it where it was built, else where it is
/// installed. Needs the application object.
QString plasmaPackageSource();

/// Brings the files of the package in `target` to those in `source`; what is the same already is
/// not written. False when they could not be read or written. Takes as long as the disk does. A
/// shell that shows the package already goes on with the old files until it starts anew.
bool installPlasmaPackage(const QString &source, const QString &target);

} // namespace zeph
