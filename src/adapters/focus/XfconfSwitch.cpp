// SPDX-License-Identifier: MIT
#include "adapters/focus/XfconfSwitch.h"

#include "adapters/focus/TruthIn.h"

namespace zeph {

using namespace Qt::StringLiterals;

namespace {

const QString xfconfName = u"org.xfce.Xfconf"_s; // its interface has the same name
const QString xfconfPath = u"/org/xfce/Xfconf"_s;
const QString channel = u"xfce4-notifyd"_s;
const QString property = u"/do-not-disturb"_s;

std::optional<bool> readProperty(const QDBusMessage &answer) {
    if (answer.type() == QDBusMessage::ErrorMessage) {
        const QString error = answer.errorName();
        const bool isUnset = error == u"org.xfce.Xfconf.Error.PropertyNotFound"_s ||
                             error == u"org.xfce.Xfconf.Error.ChannelNotFound"_s;
        return isUnset ? std::optional(false) : std::nullopt;
    }
    return answer.signature() == u"v"_s ? truthIn(answer.arguments().constFirst()) : std::nullopt;
}

BusSignal signalOf(const QString &name, const QString &signature) {
    return {{}, xfconfPath, xfconfName, name, {channel, property}, signature};
}

} // namespace

XfconfSwitch::XfconfSwitch(const QDBusConnection &bus, std::function<void()> news)
    : m_answer(bus, {xfconfName, xfconfPath, xfconfName, u"GetProperty"_s, {channel, property}},
               &readProperty, std::move(news)) {
    m_answer.service().follow(
        signalOf(u"PropertyChanged"_s, u"ssv"_s),
        [this](const QDBusMessage &signal) { m_answer.set(truthIn(signal.arguments().at(2))); });
    m_answer.service().follow(signalOf(u"PropertyRemoved"_s, u"ss"_s),
                              [this](const QDBusMessage &) { m_answer.set(false); });
}

} // namespace zeph
