// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "drawing/palette/Palette.h"
#include "drawing/view/Views.h"
#include "model/AppState.h"
#include "ports/Formatters.h"
#include "settings/PreferencesStore.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"
#include "wording/FramingContext.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

View clockWidget(const WidgetContext &context) {
    const Date now = *context.state.now;
    const Formatters &formatters = context.framing.formatters;
    const QString timePattern = context.preferences.use24HourClock() ? u"HH:mm"_s : u"h:mm"_s;

    TextStyle time = textStyle(context.palette, 84, FontWeight::thin, 1);
    time.font.evenDigits = true;
    time.shadow = TextShadow{Color::black(0.25), 12, 4};

    return verticalStack(8, {text(StatFraming::greeting(now, context.framing),
                                  textStyle(context.palette, 17, FontWeight::medium, 0.6)),
                             textFromItsInk(formatters.date(now, timePattern), time),
                             text(formatters.date(now, u"EEEE, MMMM d"_s),
                                  textStyle(context.palette, 19, FontWeight::light, 0.7))});
}

} // namespace zeph
