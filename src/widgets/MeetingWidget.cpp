// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

View meetingWidget(const WidgetContext &context) {
    return calmLine(u"calendar"_s,
                    StatFraming::nextMeeting(*context.state.calendar, context.framing),
                    context.palette);
}

} // namespace zeph
