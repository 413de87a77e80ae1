// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

namespace zeph {

/// Where the program has its wallpaper for Plasma: beside it where it was built, else where it is
/// installed. Needs the application object.
QString plasmaPackageSource();

/// Where Plasma looks for the user's own.
QString plasmaPackageTarget();

/// The folder around the pictures of the outputs: in the memory, and gone with the user's last
/// session. Empty where there is no such folder.
QString plasmaPicturesFolder();

/// The folder around the pictures that outlive the session.
QString plasmaKeptPicturesFolder();

/// Takes the package in `target` and the folders of pictures away, for when no desktop shows them
/// any more; an empty name is that of none. Takes as long as the disk does.
void removePlasmaPackage(const QString &target, const QStringList &pictures);

/// Brings the files of the package in `target` to those in `source`; what is the same already is
/// not written. False when they could not be read or written. Takes as long as the disk does. A
/// shell that shows the package already goes on with the old files until it starts anew.
bool installPlasmaPackage(const QString &source, const QString &target);

} // namespace zeph
