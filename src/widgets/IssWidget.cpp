// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"
#include "wording/StatFraming.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

constexpr double nearKilometers = 1200;

QString issText(const ISSInfo &station, const FramingContext &framing) {
    const QString start =
        station.place ? u"ISS over "_s + setApart(*station.place) : u"ISS in orbit"_s;
    if (!station.distanceKm) {
        return u"%1 · %2 up"_s.arg(start, StatFraming::kilometers(station.altitudeKm, framing));
    }
    if (*station.distanceKm < nearKilometers) {
        return start + u" · passing near you now"_s;
    }
    return u"%1 · %2 from you"_s.arg(start, StatFraming::kilometers(*station.distanceKm, framing));
}

} // namespace

View issWidget(const WidgetContext &context) {
    const std::optional<ISSInfo> &station = *context.state.iss;
    if (!station) {
        return {};
    }
    return calmLine(u"globe.americas"_s, issText(*station, context.framing), context.palette);
}

} // namespace zeph
