// SPDX-License-Identifier: MIT
#include "adapters/session/plasma/PictureFile.h"

#include <QFile>
#include <QFileInfo>
#include <QImageWriter>
#include <QtEndian>

#include <array>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// A colour wallpaper shrinks to little at the first levels already, and the others take long.
constexpr int kFastCompression = 90;

constexpr quint32 kFileHeader = 14;
constexpr quint32 kInfoHeader = 40;
constexpr quint32 kHeaders = kFileHeader + kInfoHeader;
constexpr int kBytesPerPixel = 4;

/// The headers of a bitmap whose lines go upwards, in the form that every reader knows.
std::array<char, kHeaders> bitmapHeaders(QSize size) {
    const auto pixelBytes =
        static_cast<quint32>(qint64{size.width()} * size.height() * kBytesPerPixel);
    std::array<char, kHeaders> headers{};
    char *const bytes = headers.data();
    bytes[0] = 'B';
    bytes[1] = 'M';
    qToLittleEndian<quint32>(kHeaders + pixelBytes, bytes + 2);
    qToLittleEndian<quint32>(kHeaders, bytes + 10);
    qToLittleEndian<quint32>(kInfoHeader, bytes + 14);
    qToLittleEndian<qint32>(size.width(), bytes + 18);
    qToLittleEndian<qint32>(size.height(), bytes + 22);
    qToLittleEndian<quint16>(1, bytes + 26); // planes
    qToLittleEndian<quint16>(kBytesPerPixel * 8, bytes + 28);
    qToLittleEndian<quint32>(pixelBytes, bytes + 34);
    return headers;
}

bool writeBitmap(QFile &file, const QImage &image, const QRect &part) {
    const auto headers = bitmapHeaders(part.size());
    bool isWritten = file.write(headers.data(), headers.size()) == qint64{headers.size()};
    const qint64 line = qint64{part.width()} * kBytesPerPixel;
    for (int y = part.bottom(); isWritten && y >= part.top(); --y) {
        const auto *const pixels = reinterpret_cast<const char *>(image.constScanLine(y));
        isWritten = file.write(pixels + qint64{part.left()} * kBytesPerPixel, line) == line;
    }
    return isWritten;
}

bool writeCompressed(QFile &file, const QImage &image, const QRect &part) {
    QImageWriter writer(&file, "png");
    writer.setQuality(kFastCompression);
    return writer.write(part == image.rect() ? image : image.copy(part));
}

} // namespace

bool writePicture(const QString &path, const QImage &image, const QRect &part, PictureForm form) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        return false;
    }
    const bool isWritten = (form == PictureForm::compressed ? writeCompressed(file, image, part)
                                                            : writeBitmap(file, image, part)) &&
                           file.flush();
    file.close();
    if (!isWritten) {
        QFile::remove(path); // a file that could not be closed well does not remove itself
    }
    return isWritten;
}

bool copyPicture(const QString &from, const QString &to) {
    const QFileInfo target(to);
    const QString underWay = target.path() + u"/."_s + target.fileName();
    QFile source(from);
    QFile::remove(underWay); // an end cut short may have left it
    QFile copy(underWay);
    if (!source.open(QIODevice::ReadOnly) || !copy.open(QIODevice::WriteOnly | QIODevice::NewOnly,
                                                        QFile::ReadOwner | QFile::WriteOwner)) {
        return false;
    }
    const qint64 size = source.size();
    const uchar *const bytes = source.map(0, size);
    const bool isWritten = bytes != nullptr &&
                           copy.write(reinterpret_cast<const char *>(bytes), size) == size &&
                           copy.flush();
    copy.close();
    if (!isWritten || !moveOver(underWay, to)) {
        QFile::remove(underWay);
        return false;
    }
    return true;
}

bool moveOver(const QString &from, const QString &to) {
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

} // namespace zeph
