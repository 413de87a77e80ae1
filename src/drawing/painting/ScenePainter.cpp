// SPDX-License-Identifier: MIT
#include "drawing/painting/ScenePainter.h"

#include "drawing/painting/BackdropPainter.h"
#include "drawing/painting/QtTextMetrics.h"
#include "drawing/painting/SymbolLibrary.h"
#include "drawing/painting/SymbolsAhead.h"
#include "drawing/scene/ItemBounds.h"
#include "drawing/scene/Scene.h"

#include <QRegion>

namespace zeph {

namespace {

Tile symbolTile(const SymbolItem &item, double scale, SymbolLibrary &symbols) {
    const QRect square = snappedSquare(item.box, scale);
    return {tinted(symbols.mask(item.identifier, square.width()), item.color.argb()),
            square.topLeft()};
}

bool isSymbol(const DrawItem &item) {
    return std::holds_alternative<SymbolItem>(item);
}

} // namespace

ScenePainter::ScenePainter(const QtTextMetrics &metrics, SymbolLibrary &symbols)
    : m_metrics(metrics), m_symbols(symbols), m_texts(metrics) {}

void ScenePainter::paint(const Scene &scene, const QRegion &clip, double scale, QImage &target) {
    paintBackground(scene, clip, target);
    paintItems(scene, clip, scale, target);
}

void ScenePainter::paintBackground(const Scene &scene, const QRegion &clip, QImage &target) const {
    if (scene.backdrop) {
        paintBackdrop(*scene.backdrop, clip, target);
    } else {
        clearBackdrop(clip, target);
    }
}

void ScenePainter::paintItems(const Scene &scene, const QRegion &clip, double scale,
                              QImage &target) {
    for (const DrawItem &item : scene.items) {
        const QRect bounds = deviceBounds(item, scale, m_metrics) & target.rect();
        if (clip.intersects(bounds)) {
            blend(tile(item, scale, target.rect()), clip, target);
        }
    }
}

std::vector<Tile> ScenePainter::tiles(const Scene &scene, double scale, const QRect &surface) {
    SymbolsAhead symbols(scene, scale, m_symbols);
    std::vector<Tile> tiles(scene.items.size());
    const auto make = [&](bool symbolsOnly) {
        for (std::size_t index = 0; index < tiles.size(); ++index) {
            const DrawItem &item = scene.items[index];
            if (isSymbol(item) == symbolsOnly &&
                surface.intersects(deviceBounds(item, scale, m_metrics))) {
                tiles[index] = tile(item, scale, surface);
            }
        }
    };
    make(false);
    symbols.finish();
    make(true);
    return tiles;
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
