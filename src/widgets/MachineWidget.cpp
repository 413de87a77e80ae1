// SPDX-License-Identifier: MIT
#include "widgets/BuiltInWidgets.h"

#include "model/AppState.h"
#include "widgets/WidgetContext.h"
#include "widgets/WidgetRows.h"
#include "wording/ByteCount.h"
#include "wording/StatFraming.h"

#include <limits>

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

// A counter that fell makes one rate beyond every integer: that reading is shown as the largest.
qint64 wholeBytes(double bytes) {
    constexpr double beyond = 9223372036854775808.0; // 2^63
    return bytes < beyond ? static_cast<qint64>(bytes) : std::numeric_limits<qint64>::max();
}

QString wifiText(const NetworkThroughput &network) {
    return u"%1 · ↓%2/s"_s.arg(setApart(network.ssid.value_or(u"Network"_s)),
                               byteCountRate(wholeBytes(network.downloadBytesPerSec)));
}

} // namespace

View machineWidget(const WidgetContext &context) {
    const AppState &state = context.state;
    const Palette &palette = context.palette;
    return widgetRows({sectionLabel(u"Your machine"_s, palette),
                       chipGrid({{u"battery.100"_s, StatFraming::battery(*state.battery)},
                                 {u"cpu"_s, StatFraming::cpu(*state.load)},
                                 {u"memorychip"_s, StatFraming::memory(*state.load)},
                                 {u"internaldrive"_s, StatFraming::disk(*state.disk)},
                                 {u"wifi"_s, wifiText(*state.network)},
                                 {u"powercord"_s, StatFraming::uptime(*state.uptimeSeconds)}},
                                palette)});
}

} // namespace zeph
