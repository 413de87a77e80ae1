// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "history/UsageStore.h"
#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"
#include "wording/StatFraming.h"

#include <utility>
#include <vector>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr int averagedDays = 14;

QString cursorText(double meters, const FramingContext &framing) {
    return meters > 1.0 ? u"Cursor traveled "_s + StatFraming::distance(meters, framing)
                        : u"Cursor barely moved"_s;
}

// Whoever tells of no keys tells of no pointer either.
const auto uncounted = u"Keys can't be counted on this desktop"_s;

} // namespace

View rhythmWidget(const WidgetContext &context) {
    const InputRhythm &rhythm = *context.state.rhythm;
    const ActivitySummary &activity = *context.state.activity;
    const Palette &palette = context.palette;
    const double usualActiveSeconds = context.usage.averageActiveSeconds(averagedDays);
    const QString typing =
        rhythm.isCountable ? StatFraming::typing(rhythm.keystrokesPerMinute, rhythm.dailyAverageKPM)
                           : uncounted;
    std::vector<View> rows{sectionLabel(u"Your rhythm"_s, palette),
                           calmListLine(u"keyboard"_s, typing, palette),
                           calmListLine(u"arrow.left.arrow.right"_s,
                                        StatFraming::switches(activity.appSwitches), palette)};
    if (rhythm.isCountable) {
        rows.push_back(calmListLine(u"cursorarrow.motionlines"_s,
                                    cursorText(rhythm.mouseDistanceMeters, context.framing),
                                    palette));
    }
    rows.push_back(calmListLine(u"clock.arrow.circlepath"_s,
                                StatFraming::active(activity, usualActiveSeconds), palette));
    return widgetRows(std::move(rows));
}

} // namespace zeph
