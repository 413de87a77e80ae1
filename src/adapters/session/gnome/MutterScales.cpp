// SPDX-License-Identifier: MIT
#include "adapters/session/gnome/MutterScales.h"

#include "adapters/bus/DBusCalls.h"
#include "base/Log.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString kConfigName = u"org.gnome.Mutter.DisplayConfig"_s; // its interface has the same name
const QString kConfigPath = u"/org/gnome/Mutter/DisplayConfig"_s;

} // namespace

MutterScales::MutterScales(const QDBusConnection &bus)
    : m_service(bus, kConfigName, [this] { ownerChanged(); }) {
    m_service.follow({{}, kConfigPath, kConfigName, u"MonitorsChanged"_s, {}, {}},
                     [this](const QDBusMessage &) { ask(); });
}

std::optional<double> MutterScales::scaleOf(const QString &connector, const QRect &geometry) const {
    return m_config ? pixelsInPoint(*m_config, connector, geometry) : std::nullopt;
}

Subscription MutterScales::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void MutterScales::ownerChanged() {
    take(std::nullopt);
    ask();
}

void MutterScales::ask() {
    m_service.ask(kConfigPath, kConfigName, u"GetCurrentState"_s, {}, busDefaultTimeout,
                  [this](const QDBusMessage &answer) {
                      const auto config = displayConfigIn(answer);
                      if (config) {
                          take(config);
                      } else {
                          // What was told last still stands.
                          qCInfo(logSystem) << "GNOME does not tell the scales of its monitors:"
                                            << answer.errorName() << answer.signature();
                      }
                  });
}

void MutterScales::take(const std::optional<DisplayConfig> &config) {
    if (std::exchange(m_config, config) != config) {
        m_changes.send();
    }
}

} // namespace zeph
