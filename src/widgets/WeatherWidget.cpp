// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"
#include "wording/StatFraming.h"
#include "wording/WeatherDescription.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

QString weatherSymbol(const std::optional<WeatherInfo> &weather) {
    return weather ? describe(weather->code, weather->isDay).symbol : u"location.slash"_s;
}

} // namespace

View weatherWidget(const WidgetContext &context) {
    const std::optional<WeatherInfo> &weather = *context.state.weather;
    return calmLine(weatherSymbol(weather), StatFraming::weather(weather, context.framing),
                    context.palette);
}

} // namespace zeph
