// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>
#include <QString>

#include <optional>

namespace zeph {

// How pictures are called that our wallpaper in Plasma shows. It reads the same names.

/// The folder of an output's pictures. What is neither a letter or digit of ASCII, nor "-" or "_",
/// becomes "_".
QString pictureFolderName(const QString &connector);

/// A picture of the whole output. What has a higher number lies above what has a lower one, and a
/// whole picture takes the place of all that is lower.
QString wholePictureName(quint64 number, bool isCompressed);

/// A part of it, whose upper left corner lies at `place`, in pixels of the whole one.
QString patchName(quint64 number, QPoint place);

/// The number in either of these names; absent for the name of anything else.
std::optional<quint64> pictureNumber(const QString &fileName);

} // namespace zeph
