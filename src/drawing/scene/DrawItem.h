// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/Fill.h"
#include "drawing/scene/TextStyle.h"

#include <QByteArray>
#include <QPointF>
#include <QRectF>
#include <QString>

#include <variant>

namespace zeph {

/// One line of text, already cut to its width. `origin` is the top-left of its line box.
struct TextItem {
    QString text;
    TextStyle style;
    QPointF origin;
    double scale = 1; ///< enlargement of glyphs and box about `origin`

    bool operator==(const TextItem &) const = default;
};

/// A symbol in a square box.
struct SymbolItem {
    QString identifier;
    Color color;
    QRectF box;

    bool operator==(const SymbolItem &) const = default;
};

/// A filled or outlined rectangle with round corners.
struct ShapeItem {
    QRectF rect;
    double cornerRadius = 0;
    std::optional<Fill> fill;
    std::optional<Color> outline; ///< one point wide, inside the edge
    /// The bar that this is the track or the fill of. It lies on whole device pixels, and what
    /// sticks out of its round ends is cut off.
    std::optional<QRectF> bar = {};

    bool operator==(const ShapeItem &) const = default;
};

/// An encoded picture that fills `rect`, cropped to it, with round corners.
struct ImageItem {
    QByteArray encoded;
    QRectF rect;
    double cornerRadius = 0;

    bool operator==(const ImageItem &) const = default;
};

/// What a scene is made of. All positions are points from the top left of the surface.
using DrawItem = std::variant<ShapeItem, ImageItem, SymbolItem, TextItem>;

} // namespace zeph
