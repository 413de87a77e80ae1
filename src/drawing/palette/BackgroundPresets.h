// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/palette/Color.h"

#include <QString>

#include <optional>
#include <vector>

namespace zeph {

/// The dark colours that the settings offer as backgrounds.
struct BackgroundPresets {
    struct Preset {
        QString name;
        QString hex;
    };

    /// Always the same list, in the order in which it is offered.
    static std::vector<Preset> all();

    /// The colour that the user's stored text stands for: Midnight without a text, a dark blue for
    /// a text that is no colour.
    static Color colorFor(const std::optional<QString> &storedHex);
};

} // namespace zeph
