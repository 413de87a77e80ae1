// SPDX-License-Identifier: MIT
#include "widgets/AppRankingView.h"

#include "drawing/view/Views.h"
#include "widgets/WidgetRows.h"
#include "wording/StatFraming.h"

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr double nameWidth = 130;
constexpr double timeWidth = 60;
constexpr double barHeight = 10;
constexpr double minimumFill = 6;

// With the name, the time and the gaps a row comes to 434 points: within the 440 points that
// a widget of another size than medium is laid out in.
constexpr double barWidth = 220;
constexpr double gap = 12;

double fillWidth(const AppUsage &app, const AppUsage &longest) {
    const double share = longest.seconds > 0 ? app.seconds / longest.seconds : 0;
    return std::clamp(share * barWidth, minimumFill, barWidth);
}

FrameSpec column(double width, HorizontalAlignment alignment) {
    FrameSpec frame;
    frame.width = width;
    frame.horizontal = alignment;
    return frame;
}

View appRow(const AppUsage &app, const AppUsage &longest, const Palette &palette) {
    TextStyle time = textStyle(palette, 13, FontWeight::regular, 0.7);
    time.font.evenDigits = true;
    return horizontalStack(gap,
                           {framed(text(app.name, textStyle(palette, 14, FontWeight::regular, 0.9)),
                                   column(nameWidth, HorizontalAlignment::leading)),
                            bar({barWidth, barHeight}, barHeight / 2, palette.text.opacity(0.08),
                                fillWidth(app, longest), Fill{palette.accent.opacity(0.55), {}}),
                            framed(text(StatFraming::duration(app.seconds), time),
                                   column(timeWidth, HorizontalAlignment::trailing))});
}

} // namespace

View AppRankingView::body() const {
    if (apps.empty()) {
        return text(u"Tavi is just starting to learn your day."_s,
                    textStyle(palette, 14, FontWeight::regular, 0.7));
    }
    std::vector<View> rows;
    rows.reserve(apps.size());
    for (const AppUsage &app : apps) {
        rows.push_back(appRow(app, apps.front(), palette));
    }
    return widgetRows(std::move(rows));
}

} // namespace zeph
