// SPDX-License-Identifier: MIT
#include "drawing/painting/ImageTiles.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>

#include <cmath>

namespace zeph {

namespace {

constexpr qsizetype keptBytes = qsizetype{2} << 20;

QRect snapped(const QRectF &rect, double scale) {
    const auto whole = [scale](double points) {
        return static_cast<int>(std::lround(points * scale));
    };
    const QPoint corner(whole(rect.left()), whole(rect.top()));
    return {corner, QSize(whole(rect.right()) - corner.x(), whole(rect.bottom()) - corner.y())};
}

/// The middle of the picture in a size that just covers `size`.
QImage decoded(const QByteArray &encoded, const QSize &size) {
    QBuffer buffer;
    buffer.setData(encoded);
    QImageReader reader(&buffer);
    if (reader.size().isEmpty()) {
        return {};
    }
    const QSize covering = reader.size().scaled(size, Qt::KeepAspectRatioByExpanding);
    reader.setScaledSize(covering);
    const QImage picture = reader.read();
    const QPoint middle((covering.width() - size.width()) / 2,
                        (covering.height() - size.height()) / 2);
    return picture.isNull() ? picture : picture.copy(QRect(middle, size));
}

QImage withRoundCorners(const QImage &picture, double cornerRadius) {
    QImage result(picture.size(), QImage::Format_ARGB32_Premultiplied);
    result.fill(0);
    QPainterPath path;
    path.addRoundedRect(QRectF(picture.rect()), cornerRadius, cornerRadius);
    QPainter painter(&result);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, QBrush(picture));
    return result;
}

} // namespace

size_t qHash(const ImageTiles::Key &key, size_t seed) {
    return qHashMulti(seed, key.encoded, key.size.width(), key.size.height(), key.cornerRadius);
}

ImageTiles::ImageTiles() : m_pictures(keptBytes) {}

Tile ImageTiles::tile(const ImageItem &item, double scale) {
    const QRect frame = snapped(item.rect, scale);
    const Key key{item.encoded, frame.size(), item.cornerRadius * scale};
    if (const QImage *known = m_pictures.object(key)) {
        return {*known, frame.topLeft()};
    }
    const QImage picture = frame.isEmpty() ? QImage() : decoded(item.encoded, frame.size());
    const QImage made = picture.isNull() ? QImage() : withRoundCorners(picture, key.cornerRadius);
    m_pictures.insert(key, new QImage(made), made.sizeInBytes() + item.encoded.size());
    return {made, frame.topLeft()};
}

} // namespace zeph
