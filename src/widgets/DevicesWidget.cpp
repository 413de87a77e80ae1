// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"

namespace zeph {

using namespace Qt::StringLiterals;

View devicesWidget(const WidgetContext &context) {
    std::vector<MetricChip> chips;
    for (const DeviceBattery &device : *context.state.deviceBatteries) {
        chips.push_back({device.symbol(),
                         u"%1 %2%"_s.arg(setApart(device.name), QString::number(device.percent))});
    }
    return widgetRows(
        {sectionLabel(u"Your devices"_s, context.palette), chipGrid(chips, context.palette)});
}

} // namespace zeph
