// SPDX-License-Identifier: MIT
#include "presentation/painting/ScenePainter.h"

#include "presentation/painting/BackdropPainter.h"
#include "presentation/painting/QtTextMetrics.h"
#include "presentation/painting/SymbolLibrary.h"
#include "presentation/scene/ItemBounds.h"
#include "presentation/scene/Scene.h"

#include <QRegion>

namespace zeph {

namespace {

Tile symbolTile(const SymbolItem &item, double scale, SymbolLibrary &symbols) {
    const QRect square = snappedSquare(item.box, scale);
    return {tinted(symbols.mask(item.identifier, square.width()), item.color.argb()),
            square.topLeft()};
}

} // namespace

ScenePainter::ScenePainter(const QtTextMetrics &metrics, SymbolLibrary &symbols)
    : m_metrics(metrics), m_symbols(symbols), m_texts(metrics) {}

void ScenePainter::paint(const Scene &scene, const QRegion &clip, double scale, QImage &target) {
    if (scene.backdrop) {
        paintBackdrop(*scene.backdrop, clip, target);
    } else {
        clearBackdrop(clip, target);
    }
    for (const DrawItem &item : scene.items) {
        const QRect bounds = deviceBounds(item, scale, m_metrics) & target.rect();
        if (clip.intersects(bounds)) {
            blend(tile(item, scale, target.rect()), clip, target);
        }
    }
}

Tile ScenePainter::tile(const DrawItem &item, double scale, const QRect &surface) {
    if (const auto *text = std::get_if<TextItem>(&item)) {
        return m_texts.tile(*text, scale, surface);
    }
    if (const auto *symbol = std::get_if<SymbolItem>(&item)) {
        return symbolTile(*symbol, scale, m_symbols);
    }
    if (const auto *shape = std::get_if<ShapeItem>(&item)) {
        return m_shapes.tile(*shape, scale, surface);
    }
    return m_images.tile(std::get<ImageItem>(item), scale);
}

} // namespace zeph
