// SPDX-License-Identifier: MIT
#include "presentation/widgets/BuiltInWidgets.h"

#include "core/AppState.h"
#include "presentation/widgets/WidgetContext.h"
#include "presentation/widgets/WidgetRows.h"

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
