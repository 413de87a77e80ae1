// SPDX-License-Identifier: MIT
#include "presentation/widgets/BuiltInWidgets.h"

#include "ambient/WeatherDescription.h"
#include "core/AppState.h"
#include "presentation/framing/StatFraming.h"
#include "presentation/widgets/WidgetContext.h"
#include "presentation/widgets/WidgetRows.h"

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
