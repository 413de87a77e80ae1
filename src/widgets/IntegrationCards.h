// SPDX-License-Identifier: MIT
#pragma once

#include "drawing/palette/Palette.h"
#include "drawing/view/View.h"
#include "model/SimpleIntegrationStats.h"

namespace zeph {

/// The small cards of web accounts; each fills the cell that it is placed in.

/// A title, a line under it and facts.
struct IntegrationSummaryCard {
    QString title;
    std::optional<QString> subtitle;
    std::vector<IntegrationChip> lines;
    Palette palette;

    View body() const;
};

struct CryptoPriceCard {
    QString coinName;
    QString priceText;
    std::optional<QString> changeText;
    Palette palette;

    View body() const;
};

struct AhrefsRatingCard {
    QString domain;
    QString ratingText;
    bool showAttribution = true;
    Palette palette;

    View body() const;
};

} // namespace zeph
