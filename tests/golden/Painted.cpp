// SPDX-License-Identifier: MIT
#include "golden/Painted.h"

#include <QBuffer>
#include <QPainter>
#include <QPainterPath>
#include <QRegion>

#include <cmath>

namespace zeph {

void Painted::paint(const Scene &scene, double scale, QImage &target) {
    m_painter.paint(scene, QRegion(target.rect()), scale, target);
}

QImage Painted::opaque(const Scene &scene, const QSize &size, double scale) {
    QImage picture(size * scale, QImage::Format_RGB32);
    paint(scene, scale, picture);
    return picture;
}

QImage Painted::over(const QImage &desktop, const Scene &scene, const QSize &size, double scale) {
    QImage surface(size * scale, QImage::Format_ARGB32_Premultiplied);
    paint(scene, scale, surface);
    QImage picture = desktop.convertToFormat(QImage::Format_RGB32);
    QPainter(&picture).drawImage(0, 0, surface);
    return picture;
}

QImage desktopPicture(const QSize &size) {
    constexpr QRgb sky = qRgb(96, 112, 140);
    constexpr int hills = 4;
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(sky);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    for (int hill = 0; hill < hills; ++hill) {
        QPainterPath ridge(QPointF(0, size.height()));
        for (int x = 0; x <= size.width(); x += 4) {
            const double along = 6.0 * x / size.width() + hill * 1.7;
            const double height = 0.62 - 0.13 * hill + 0.05 * std::sin(along);
            ridge.lineTo(x, size.height() * (1 - height));
        }
        ridge.lineTo(size.width(), size.height());
        const int shade = 84 - 18 * hill;
        painter.setBrush(QColor(shade, shade + 14, shade + 22));
        painter.drawPath(ridge);
    }
    return picture;
}

QByteArray encodedSky() {
    constexpr int stars = 140;
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(qRgb(10, 10, 26));
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.translate(picture.width() / 2.0, picture.height() / 2.0);
    for (int star = 0; star < stars; ++star) {
        const double out = star / static_cast<double>(stars);
        const double turn = star * 2.39996 * 0.5 + out * 3;
        const QPointF place(std::cos(turn) * out * 190, std::sin(turn) * out * 90);
        painter.setBrush(QColor(200 + star % 50, 190, 255 - star, 230 - star));
        painter.drawEllipse(place, 7 - 5 * out, 7 - 5 * out);
    }
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    return bytes;
}

} // namespace zeph
