// SPDX-License-Identifier: MIT
#include "ui/settings/StandInDesktop.h"

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>

#include <array>
#include <cmath>

namespace zeph::ui {

namespace {

/// One ridge, in parts of the picture's height and width.
struct Ridge {
    double height;
    double swing;
    double phase;
    double waves;
    QRgb color;
};

// From the furthest to the nearest; distance makes paler.
constexpr std::array<Ridge, 4> ridges{{
    {0.46, 0.05, 0.4, 5.2, 0xFF8C93AD},
    {0.36, 0.07, 2.1, 4.1, 0xFF65708F},
    {0.25, 0.06, 4.4, 3.3, 0xFF435068},
    {0.13, 0.05, 1.2, 2.6, 0xFF293446},
}};

constexpr double ridgeStep = 2; // pixels between two points of an outline

QPainterPath outline(const Ridge &ridge, const QSizeF &size) {
    QPainterPath path(QPointF(0, size.height()));
    const int steps = static_cast<int>(size.width() / ridgeStep) + 1;
    for (int step = 0; step <= steps; ++step) {
        const double x = step * ridgeStep;
        const double along = ridge.phase + ridge.waves * x / size.width();
        const double wave = std::sin(along) + 0.35 * std::sin(2.7 * along);
        path.lineTo(x, size.height() * (1 - ridge.height - ridge.swing * wave));
    }
    path.lineTo(size.width(), size.height());
    path.closeSubpath();
    return path;
}

} // namespace

QBrush standInDesktop(const QSizeF &size, double pixelRatio) {
    const QSizeF pixels = size * pixelRatio;
    QImage picture(pixels.toSize().expandedTo({1, 1}), QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, pixels.height());
    sky.setColorAt(0, QColor::fromRgb(0x56, 0x6B, 0x94));
    sky.setColorAt(0.6, QColor::fromRgb(0xC9, 0xA9, 0xA4));
    painter.fillRect(picture.rect(), sky);
    painter.setPen(Qt::NoPen);
    for (const Ridge &ridge : ridges) {
        painter.setBrush(QColor::fromRgb(ridge.color));
        painter.drawPath(outline(ridge, pixels));
    }
    painter.end();
    QBrush brush(picture);
    brush.setTransform(QTransform::fromScale(1 / pixelRatio, 1 / pixelRatio));
    return brush;
}

} // namespace zeph::ui
