// SPDX-License-Identifier: MIT
#include "presentation/widgets/BuiltInWidgets.h"

#include "core/AppState.h"
#include "presentation/framing/StatFraming.h"
#include "presentation/widgets/WidgetContext.h"
#include "presentation/widgets/WidgetRows.h"

namespace zeph {

using namespace Qt::StringLiterals;

View meetingWidget(const WidgetContext &context) {
    return calmLine(u"calendar"_s,
                    StatFraming::nextMeeting(*context.state.calendar, context.framing),
                    context.palette);
}

} // namespace zeph
