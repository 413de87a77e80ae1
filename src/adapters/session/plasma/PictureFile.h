// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QString>

namespace zeph {

enum class PictureForm {
    plain,     ///< a bitmap of 32 bits, which costs nobody who reads it any work
    compressed ///< PNG, for what would be a lot of memory in a folder of the memory
};

/// Writes that part of an image with 32 bits a pixel to `path`. False when it could not be written
/// whole; nothing is left of it then.
bool writePicture(const QString &path, const QImage &image, const QRect &part, PictureForm form);

/// Copies a picture, readable by the user alone. What lay at `to` stays until the copy is whole,
/// and where it can't be made.
bool copyPicture(const QString &from, const QString &to);

/// Renames a file over whatever lies there, which QFile does not.
bool moveOver(const QString &from, const QString &to);

} // namespace zeph
