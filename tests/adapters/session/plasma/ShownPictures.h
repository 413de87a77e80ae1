// SPDX-License-Identifier: MIT
#pragma once

#include "adapters/session/plasma/PictureNames.h"

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QStringList>

namespace zeph {

/// Those that can be seen: what is under way begins with a dot.
inline QStringList picturesIn(const QString &folder) {
    return QDir(folder).entryList(QDir::Files, QDir::Name);
}

/// What our wallpaper in Plasma makes of the pictures in a folder: parts lie over the whole one
/// that came before them.
inline QImage shownBy(const QString &folder) {
    QImage shown;
    const QStringList names = picturesIn(folder); // whole ones come first
    quint64 whole = 0;
    for (const QString &name : names) {
        const QImage picture(folder + u'/' + name);
        const quint64 number = pictureNumber(name).value_or(0);
        if (name.startsWith(u'f')) {
            shown = picture.convertToFormat(QImage::Format_RGB32);
            whole = number;
        } else if (number > whole) {
            const QStringList words = name.chopped(4).split(u'-');
            QPainter(&shown).drawImage(QPoint(words.at(2).toInt(), words.at(3).toInt()), picture);
        }
    }
    return shown;
}

inline QImage plainPicture(QSize size, QColor colour) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

} // namespace zeph
