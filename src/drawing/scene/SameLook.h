// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/scene/Scene.h"

#include <cstddef>

namespace zeph {

// Whether two things come out the same on screen. Colours are compared by the 8-bit values they
// become, so that a palette that drifts by a thousandth changes nothing.
bool sameLook(const Color &one, const Color &other);
bool sameLook(const DrawItem &one, const DrawItem &other);
bool sameLook(const std::optional<AmbientBackground> &one,
              const std::optional<AmbientBackground> &other);

/// Equal for items of the same look.
std::size_t lookHash(const DrawItem &item);

} // namespace zeph
