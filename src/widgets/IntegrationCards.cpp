// SPDX-License-Identifier: MIT
#include "widgets/IntegrationCards.h"

#include "drawing/view/Views.h"
#include "widgets/WidgetRows.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr double cornerRadius = 12;
constexpr double rowSpacing = 8;
constexpr double iconFrame = 18;
constexpr Padding cardPadding{14, 12};

View card(std::vector<View> rows, const Palette &palette) {
    return onCard(padded(verticalStack(rowSpacing, std::move(rows)), cardPadding), cornerRadius,
                  palette.cardFill);
}

/// What the card is about, with its symbol.
View subject(const QString &icon, const QString &name, const Palette &palette) {
    return horizontalStack(rowSpacing,
                           {symbol(icon, 13, palette.text.opacity(0.55), iconFrame),
                            text(name, textStyle(palette, 15, FontWeight::regular, 0.9))});
}

View mainLine(const QString &words, const Palette &palette) {
    TextStyle style = textStyle(palette, 14, FontWeight::regular, 0.88);
    style.font.evenDigits = true;
    return text(words, style);
}

View footLine(const QString &words, const Palette &palette) {
    return text(words, textStyle(palette, 11, FontWeight::regular, 0.45));
}

} // namespace

View IntegrationSummaryCard::body() const {
    std::vector<View> rows{text(title, textStyle(palette, 14, FontWeight::regular, 0.88))};
    if (subtitle) {
        rows.push_back(text(*subtitle, textStyle(palette, 12, FontWeight::regular, 0.55)));
    }
    for (const IntegrationChip &line : lines) {
        rows.push_back(metricChip({line.icon, line.text}, palette));
    }
    return card(std::move(rows), palette);
}

View CryptoPriceCard::body() const {
    std::vector<View> rows{subject(u"bitcoinsign.circle"_s, coinName, palette),
                           mainLine(priceText, palette)};
    if (changeText) {
        rows.push_back(footLine(*changeText, palette));
    }
    return card(std::move(rows), palette);
}

View AhrefsRatingCard::body() const {
    std::vector<View> rows{subject(u"link"_s, domain, palette), mainLine(ratingText, palette)};
    if (showAttribution) {
        rows.push_back(footLine(u"Domain Rating by Ahrefs"_s, palette));
    }
    return card(std::move(rows), palette);
}

} // namespace zeph
