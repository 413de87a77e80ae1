// SPDX-License-Identifier: MIT
#include "widgets/WidgetRows.h"

#include "drawing/palette/Palette.h"
#include "drawing/view/FixedColumnFlow.h"
#include "drawing/view/Views.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

// A symbol's frame is as wide as its box. Beside it the texts of chips and of small calm lines
// start in one column: 0.85 × (18 + 10) = 15.6 + 8.2.
constexpr double calmIconFrame = 18;
constexpr double calmGap = 10;
constexpr double chipIconFrame = 15.6;
constexpr double chipGap = 8.2;
constexpr double calmListLineHeight = 24;

// Words from elsewhere must not push a column off the screen: a sentence ends where the quote's
// lines do, a heading where its two columns of chips do.
constexpr double widestCalmLine = 520;
constexpr double widestLabel = 490;

View atMost(double width, View content) {
    FrameSpec frame;
    frame.maxWidth = width;
    frame.horizontal = HorizontalAlignment::leading;
    return framed(std::move(content), frame);
}

} // namespace

TextStyle textStyle(const Palette &palette, double size, FontWeight weight, double opacity) {
    FontSpec font;
    font.size = size;
    font.weight = weight;
    return {font, palette.text.opacity(opacity), {}};
}

QString setApart(const QString &name) {
    constexpr char16_t isolate = 0x2068;
    constexpr char16_t endOfIsolate = 0x2069;
    const bool turns = std::any_of(name.begin(), name.end(), [](QChar letter) {
        return letter.direction() == QChar::DirR || letter.direction() == QChar::DirAL;
    });
    return turns ? QChar(isolate) + name + QChar(endOfIsolate) : name;
}

View sectionLabel(const QString &title, const Palette &palette) {
    TextStyle style = textStyle(palette, 11, FontWeight::semibold, 0.45);
    style.font.letterSpacing = 1.5;
    return atMost(widestLabel, text(title.toUpper(), style));
}

View calmLine(const QString &symbolName, const QString &sentence, const Palette &palette) {
    TextStyle style = textStyle(palette, 17, FontWeight::light, 0.85);
    style.font.evenDigits = true;
    return atMost(
        widestCalmLine,
        horizontalStack(calmGap, {symbol(symbolName, 15, palette.text.opacity(0.9), calmIconFrame),
                                  text(sentence, style)}));
}

View calmListLine(const QString &symbolName, const QString &sentence, const Palette &palette) {
    FrameSpec frame;
    frame.height = calmListLineHeight;
    frame.horizontal = HorizontalAlignment::leading;
    return framed(calmLine(symbolName, sentence, palette), frame);
}

View metricChip(const MetricChip &chip, const Palette &palette) {
    TextStyle style = textStyle(palette, 13, FontWeight::light, 0.82);
    style.font.evenDigits = true;
    return horizontalStack(
        chipGap,
        {symbol(chip.icon, 13, palette.text.opacity(0.55), chipIconFrame), text(chip.text, style)});
}

View chipGrid(const std::vector<MetricChip> &chips, const Palette &palette) {
    std::vector<View> cells;
    cells.reserve(chips.size());
    for (const MetricChip &chip : chips) {
        cells.push_back(metricChip(chip, palette));
    }
    FixedColumnFlow flow;
    flow.columns = 2;
    flow.spacing = 10;
    flow.fixedColumnWidth = 240;
    flow.maxColumnWidth = 260;
    return columnFlow(flow, std::move(cells));
}

View widgetRows(std::vector<View> rows) {
    return verticalStack(widgetRowSpacing, std::move(rows));
}

} // namespace zeph
