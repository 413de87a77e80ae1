// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/Tokens.h"

#include <QColor>
#include <QPainterPath>
#include <QRectF>

#include <functional>

class QPainter;
class QWidget;

/// What the controls have in common when they paint themselves. Measures in logical pixels.
namespace zeph::ui {

/// A shape with rounded corners. Half of the shorter side is the most that a radius can be.
struct Rounded {
    QRectF rect;
    double radius = 0;

    /// The same shape, smaller by `margin` at each side and with the corners fitting.
    Rounded inset(double margin) const;
    QPainterPath path() const;
};

/// The shape with half circles at its ends.
Rounded pill(const QRectF &rect);

constexpr double disabledOpacity = 0.42;

/// Paints `widget` with an antialiasing painter; a disabled one as a whole at that opacity.
void paintControl(QWidget &widget, const std::function<void(QPainter &)> &paint);

/// Cuts the corners of a translucent `window` off, for screens where nothing shows through. What is
/// only partly covered stays, so that the edge is as smooth as before elsewhere.
void cutCorners(QWidget &window, double radius);

/// `alignment` in the form that QPainter's texts take.
inline int drawFlags(Qt::Alignment alignment) {
    return static_cast<int>(alignment.toInt());
}

/// `rect`, meant for left to right, where it lies in `widget`.
QRectF mirrored(const QWidget &widget, const QRectF &rect);

/// `rect` with its sides on the nearest boundaries of device pixels.
QRectF onPixels(const QPainter &painter, const QRectF &rect);

/// One device pixel.
double hairline(const QPainter &painter);

/// A line of `width` just inside of `shape`.
void strokeInside(QPainter &painter, const Rounded &shape, double width, const QColor &color);
/// The same, one device pixel wide and on pixel boundaries.
void paintHairline(QPainter &painter, const Rounded &shape, const QColor &color);

/// The ring around what has the focus: 2 wide, 2 away, following the shape.
void paintRing(QPainter &painter, const Rounded &shape, const QColor &color);
/// How far that ring reaches beyond the shape.
double ringReach();
/// The same ring 3 inward, for rows of a list, which have no room around them.
void paintRingInside(QPainter &painter, const Rounded &shape, const QColor &color);

/// A soft shadow of one pixel below `shape`; to be painted before it.
void paintThinShadow(QPainter &painter, const Rounded &shape);

/// Marks that are too small for a symbol of the family: strokes of 1.5 around `center`.
void paintChevronDown(QPainter &painter, QPointF center, const QColor &color);
void paintMinus(QPainter &painter, QPointF center, const QColor &color);
void paintPlus(QPainter &painter, QPointF center, const QColor &color);

/// The symbol `identifier` in `rect`.
void paintSymbol(QPainter &painter, const QWidget &widget, const QString &identifier,
                 const QRectF &rect, const QColor &color);

/// Between two colours, alpha included.
QColor blend(const QColor &from, const QColor &to, double fraction);
/// `color` with `alpha` in place of its own.
QColor veiled(const QColor &color, double alpha);
/// What `tokens` lighten or darken a filled shape to while it is hovered by `amount`, 0 to 1.
QColor hovered(const QColor &color, const Tokens &tokens, double amount);

} // namespace zeph::ui
