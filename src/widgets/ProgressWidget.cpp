// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "drawing/palette/Palette.h"
#include "drawing/view/Views.h"
#include "model/AppState.h"
#include "ports/Calendar.h"
#include "ports/Formatters.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"
#include "wording/FramingContext.h"

#include <algorithm>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr QSizeF trackSize(220, 8);
constexpr double trackRadius = 6;
constexpr double barGap = 12;

/// How much of the current year or month has passed, 0 to 1; 0 when the calendar can't tell.
double fractionPassed(CalendarUnit unit, Date now, const Calendar &calendar) {
    const std::optional<DateInterval> span = calendar.interval(unit, now);
    if (!span || !(span->end > span->start)) {
        return 0;
    }
    return std::clamp((now - span->start) / (span->end - span->start), 0.0, 1.0);
}

FrameSpec column(double width, HorizontalAlignment alignment) {
    FrameSpec frame;
    frame.width = width;
    frame.horizontal = alignment;
    return frame;
}

View progressBar(const QString &label, double fraction, const Palette &palette) {
    TextStyle percent = textStyle(palette, 12, FontWeight::light, 0.65);
    percent.font.evenDigits = true;
    const QString percentText = QString::number(static_cast<int>(fraction * 100)) + u'%';
    return horizontalStack(
        barGap,
        {framed(text(label, textStyle(palette, 13, FontWeight::medium, 0.8)),
                column(76, HorizontalAlignment::leading)),
         bar(trackSize, trackRadius, palette.text.opacity(0.08), trackSize.width() * fraction,
             Fill{palette.accent, palette.accent.opacity(0.55)}),
         framed(text(percentText, percent), column(38, HorizontalAlignment::trailing))});
}

} // namespace

View progressWidget(const WidgetContext &context) {
    const Date now = *context.state.now;
    const Calendar &calendar = context.framing.calendar;
    const Palette &palette = context.palette;
    return widgetRows(
        {sectionLabel(u"Time passing"_s, palette),
         verticalStack(
             12, {progressBar(QString::number(calendar.components(now).year),
                              fractionPassed(CalendarUnit::year, now, calendar), palette),
                  progressBar(context.framing.formatters.date(now, u"MMMM"_s),
                              fractionPassed(CalendarUnit::month, now, calendar), palette)})});
}

} // namespace zeph
