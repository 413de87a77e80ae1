// SPDX-License-Identifier: MIT
#include "ui/controls/Paint.h"

#include "ui/controls/Look.h"

#include <QBitmap>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

#include <algorithm>
#include <array>
#include <cmath>

namespace zeph::ui {

using namespace Qt::StringLiterals;

namespace {

constexpr double ringWidth = 2;
constexpr double ringGap = 2;
constexpr double ringInset = 3; // of a ring inside
constexpr double markWidth = 1.5;
constexpr double hoverChange = 0.17;

/// Drawings that mean another direction in a language that is read from the right.
bool pointsSideways(const QString &identifier) {
    return identifier == u"chevron.left"_s || identifier == u"chevron.right"_s ||
           identifier == u"chevron.forward"_s || identifier == u"arrow.up.right.square"_s;
}

QPen markPen(const QColor &color) {
    return {color, markWidth * scale(), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

} // namespace

Rounded Rounded::inset(double margin) const {
    return {rect.adjusted(margin, margin, -margin, -margin), std::max(0.0, radius - margin)};
}

QPainterPath Rounded::path() const {
    const double most = std::min(rect.width(), rect.height()) / 2;
    QPainterPath path;
    path.addRoundedRect(rect, std::min(radius, most), std::min(radius, most));
    return path;
}

Rounded pill(const QRectF &rect) {
    return {rect, std::min(rect.width(), rect.height()) / 2};
}

void paintControl(QWidget &widget, const std::function<void(QPainter &)> &paint) {
    QPainter painter(&widget);
    if (widget.isEnabled()) {
        painter.setRenderHint(QPainter::Antialiasing);
        paint(painter);
        return;
    }
    // Made pale as one picture: where shapes lie over each other, the lower must not shine through.
    const double ratio = widget.devicePixelRatioF();
    QPixmap picture((QSizeF(widget.size()) * ratio).toSize());
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    QPainter inner(&picture);
    inner.setRenderHint(QPainter::Antialiasing);
    inner.setFont(widget.font());
    inner.setLayoutDirection(widget.layoutDirection());
    paint(inner);
    inner.end();
    painter.setOpacity(disabledOpacity);
    painter.drawPixmap(0, 0, picture);
}

void cutCorners(QWidget &window, double radius) {
    QBitmap covered(window.size());
    covered.clear();
    QPainter painter(&covered);
    painter.setBrush(Qt::color1);
    painter.setPen(QPen(Qt::color1, 1));
    painter.drawPath(Rounded{window.rect(), radius}.path());
    painter.end();
    window.setMask(covered);
}

QRectF mirrored(const QWidget &widget, const QRectF &rect) {
    if (widget.layoutDirection() == Qt::LeftToRight) {
        return rect;
    }
    return {widget.width() - rect.right(), rect.top(), rect.width(), rect.height()};
}

QRectF onPixels(const QPainter &painter, const QRectF &rect) {
    const QTransform toDevice = painter.deviceTransform();
    const QRectF device = toDevice.mapRect(rect);
    const QPointF topLeft(std::round(device.left()), std::round(device.top()));
    const QPointF bottomRight(std::round(device.right()), std::round(device.bottom()));
    return toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

double hairline(const QPainter &painter) {
    return 1 / painter.device()->devicePixelRatioF();
}

void strokeInside(QPainter &painter, const Rounded &shape, double width, const QColor &color) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(color, width));
    painter.drawPath(shape.inset(width / 2).path());
    painter.setPen(Qt::NoPen);
}

void paintHairline(QPainter &painter, const Rounded &shape, const QColor &color) {
    strokeInside(painter, {onPixels(painter, shape.rect), shape.radius}, hairline(painter), color);
}

void paintRing(QPainter &painter, const Rounded &shape, const QColor &color) {
    strokeInside(painter, shape.inset(-ringReach()), ringWidth * scale(), color);
}

double ringReach() {
    return (ringGap + ringWidth) * scale();
}

void paintRingInside(QPainter &painter, const Rounded &shape, const QColor &color) {
    strokeInside(painter, shape.inset(ringInset * scale()), ringWidth * scale(), color);
}

void paintThinShadow(QPainter &painter, const Rounded &shape) {
    struct Layer {
        double spread;
        int alpha;
    };
    constexpr std::array layers{Layer{1, 10}, Layer{0.5, 18}, Layer{0, 26}};
    painter.setPen(Qt::NoPen);
    for (const Layer &layer : layers) {
        Rounded shadow = shape.inset(-layer.spread * scale());
        shadow.rect.translate(0, scale());
        painter.fillPath(shadow.path(), QColor(0, 0, 0, layer.alpha));
    }
}

void paintChevronDown(QPainter &painter, QPointF center, const QColor &color) {
    const double half = 5 * scale();
    const double rise = 2.5 * scale();
    const std::array points{center + QPointF(-half, -rise), center + QPointF(0, rise),
                            center + QPointF(half, -rise)};
    painter.setBrush(Qt::NoBrush);
    painter.setPen(markPen(color));
    painter.drawPolyline(points.data(), static_cast<int>(points.size()));
}

void paintMinus(QPainter &painter, QPointF center, const QColor &color) {
    const double half = 5 * scale();
    painter.setPen(markPen(color));
    painter.drawLine(center - QPointF(half, 0), center + QPointF(half, 0));
}

void paintPlus(QPainter &painter, QPointF center, const QColor &color) {
    const double half = 5 * scale();
    paintMinus(painter, center, color);
    painter.drawLine(center - QPointF(0, half), center + QPointF(0, half));
}

void paintSymbol(QPainter &painter, const QWidget &widget, const QString &identifier,
                 const QRectF &rect, const QColor &color) {
    const QPixmap symbol = Look::of(widget).symbol(widget, identifier, rect.width(), color);
    const QRectF place = onPixels(painter, rect);
    if (widget.layoutDirection() == Qt::RightToLeft && pointsSideways(identifier)) {
        painter.save();
        painter.translate(place.right(), place.top());
        painter.scale(-1, 1);
        painter.drawPixmap(QPointF(0, 0), symbol);
        painter.restore();
        return;
    }
    painter.drawPixmap(place.topLeft(), symbol);
}

QColor blend(const QColor &from, const QColor &to, double fraction) {
    const auto part = static_cast<float>(std::clamp(fraction, 0.0, 1.0));
    // With premultiplied channels, so that a clear colour gives none of its hue.
    const float alpha = from.alphaF() + (to.alphaF() - from.alphaF()) * part;
    if (alpha <= 0) {
        return Qt::transparent;
    }
    const auto channel = [&](float one, float other) {
        const float value = one * from.alphaF() * (1 - part) + other * to.alphaF() * part;
        return std::clamp(value / alpha, 0.0F, 1.0F);
    };
    return QColor::fromRgbF(channel(from.redF(), to.redF()), channel(from.greenF(), to.greenF()),
                            channel(from.blueF(), to.blueF()), alpha);
}

QColor veiled(const QColor &color, double alpha) {
    QColor result = color;
    result.setAlphaF(static_cast<float>(alpha));
    return result;
}

QColor hovered(const QColor &color, const Tokens &tokens, double amount) {
    const bool isDark = tokens.ground.lightness() < 128;
    return blend(color, isDark ? Qt::white : Qt::black, hoverChange * amount);
}

} // namespace zeph::ui
