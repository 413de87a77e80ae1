// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"

#include <array>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

QString airQualityLabel(qint64 aqi) {
    struct Row {
        qint64 upTo;
        QString label;
    };
    const std::array rows = {
        Row{50, u"good air"_s},
        Row{100, u"moderate air"_s},
        Row{150, u"unhealthy for sensitive groups"_s},
        Row{200, u"unhealthy air"_s},
        Row{300, u"very unhealthy air"_s},
    };
    for (const Row &row : rows) {
        if (aqi <= row.upTo) {
            return row.label;
        }
    }
    return u"hazardous air"_s;
}

QString airQualityText(const std::optional<AirQualityInfo> &air) {
    if (!air) {
        return u"Air quality will appear with location"_s;
    }
    return u"AQI %1 · %2"_s.arg(QString::number(air->aqi), airQualityLabel(air->aqi));
}

} // namespace

View airQualityWidget(const WidgetContext &context) {
    return calmLine(u"aqi.medium"_s, airQualityText(*context.state.airQuality), context.palette);
}

} // namespace zeph
