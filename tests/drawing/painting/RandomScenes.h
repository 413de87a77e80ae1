// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/Scene.h"

#include <random>

namespace zeph {

/// Scenes of all kinds of items from a seed, and small changes to them like those of a live
/// wallpaper. The same seed gives the same scenes on every machine.
class RandomScenes {
public:
    explicit RandomScenes(unsigned seed) : m_engine(seed) {}

    Scene scene();

    /// Adds, removes, changes, moves or swaps a few items; now and then changes the backdrop.
    void change(Scene &scene);

private:
    int below(int limit) {
        return static_cast<int>(m_engine() % static_cast<unsigned>(limit)); // same everywhere
    }
    double part() { return below(1000) / 1000.0; }
    QPointF point() { return {below(360) - 20 + 0.25 * below(4), below(240) - 20 + part()}; }
    Color color() { return {part(), part(), part(), part()}; }
    AmbientBackground backdrop();
    DrawItem item();
    TextItem text();
    ShapeItem shape();
    ImageItem picture();

    std::mt19937 m_engine;
};

} // namespace zeph
