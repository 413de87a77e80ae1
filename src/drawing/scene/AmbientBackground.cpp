// SPDX-License-Identifier: MIT
#include "drawing/scene/AmbientBackground.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zeph {

namespace {

struct DiscForm {
    double phase;
    double size;
    double x;
    double y;
};

constexpr std::array<DiscForm, softDiscCount> discForms{{
    {0, 0.55, 0.28, 0.32},
    {2.1, 0.42, 0.72, 0.40},
    {4.3, 0.48, 0.52, 0.70},
}};

} // namespace

SoftDisc softDisc(const AmbientBackground &background, int index, double width, double height) {
    const DiscForm &form = discForms.at(static_cast<std::size_t>(index));
    const double drift = (background.energy * 0.25 + 0.12) * background.time;
    const double breath = (background.energy * 0.5 + 0.4) * background.time;
    const double breathing = (std::sin(breath + form.phase) * 0.5 + 0.5) * 0.15 + 0.85;
    SoftDisc disc;
    disc.centerX = width * form.x + std::sin(drift + form.phase) * width * 0.06;
    disc.centerY = height * form.y + std::cos(drift + form.phase) * height * 0.05;
    disc.radius = std::min(width, height) * form.size * breathing;
    disc.alpha = background.energy * 0.12 + 0.22;
    return disc;
}

} // namespace zeph
