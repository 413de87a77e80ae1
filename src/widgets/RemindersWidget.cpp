// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

QString remindersHeadline(const RemindersSummary &reminders) {
    if (reminders.dueToday == 0 && reminders.overdue == 0) {
        return u"Nothing due today · clear runway"_s;
    }
    QStringList parts;
    if (reminders.dueToday >= 1) {
        parts << QString::number(reminders.dueToday) + u" due today"_s;
    }
    if (reminders.overdue >= 1) {
        parts << QString::number(reminders.overdue) + u" overdue"_s;
    }
    return parts.join(u" · "_s);
}

} // namespace

View remindersWidget(const WidgetContext &context) {
    const RemindersSummary &reminders = *context.state.reminders;
    const Palette &palette = context.palette;
    std::vector<View> rows{sectionLabel(u"Reminders"_s, palette),
                           calmListLine(u"checklist"_s, remindersHeadline(reminders), palette)};
    for (const QString &title : reminders.topTitles) {
        rows.push_back(calmListLine(u"circle"_s, title, palette));
    }
    return widgetRows(std::move(rows));
}

} // namespace zeph
