// SPDX-License-Identifier: MIT
#include "presentation/widgets/WidgetRows.h"

#include "presentation/palette/Palette.h"
#include "presentation/view/FixedColumnFlow.h"
#include "presentation/view/Views.h"

#include <algorithm>
#include <utility>

namespace zeph {

namespace {

// All symbols of one kind of row share a frame, so that the texts beside them start in one line.
constexpr double calmIconFrame = 22;
constexpr double chipIconFrame = 18;
constexpr double calmListLineHeight = 24;

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
    return text(title.toUpper(), style);
}

View calmLine(const QString &symbolName, const QString &sentence, const Palette &palette) {
    TextStyle style = textStyle(palette, 17, FontWeight::light, 0.85);
    style.font.evenDigits = true;
    return horizontalStack(10, {symbol(symbolName, 15, palette.text.opacity(0.9), calmIconFrame),
                                text(sentence, style)});
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
    return horizontalStack(8, {symbol(chip.icon, 13, palette.text.opacity(0.55), chipIconFrame),
                               text(chip.text, style)});
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
