// SPDX-License-Identifier: MIT
#include "adapters/tray/TrayPicture.h"

#include <QPainter>

namespace zeph {

namespace {

constexpr QRgb lightInk = 0xFFF3F0EC;
constexpr QRgb darkInk = 0xFF101126;
constexpr qint64 middleGray = 128;

} // namespace

QImage inkedPicture(const QImage &mask, const QColor &ink) {
    QImage picture(mask.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(ink);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, mask);
    return picture;
}

QColor inkOn(const QImage &ground) {
    qint64 sum = 0;
    for (int y = 0; y < ground.height(); ++y) {
        for (int x = 0; x < ground.width(); ++x) {
            sum += qGray(ground.pixel(x, y));
        }
    }
    const qint64 pixels = qint64{ground.width()} * ground.height();
    return QColor::fromRgb(sum < middleGray * pixels ? lightInk : darkInk);
}

QImage seamedPicture(const QImage &mask, int seam) {
    QImage picture(mask.size() + QSize(2 * seam, 2 * seam), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    const QImage dark = inkedPicture(mask, QColor::fromRgb(darkInk));
    for (int y = -seam; y <= seam; ++y) {
        for (int x = -seam; x <= seam; ++x) {
            painter.drawImage(seam + x, seam + y, dark);
        }
    }
    painter.drawImage(seam, seam, inkedPicture(mask, QColor::fromRgb(lightInk)));
    return picture;
}

} // namespace zeph
