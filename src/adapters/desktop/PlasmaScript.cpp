// SPDX-License-Identifier: MIT
#include "adapters/desktop/PlasmaScript.h"

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

// Drawing a desktop anew takes a slow machine some seconds.
constexpr int kAnswerTimeoutMilliseconds = 10'000;

} // namespace

QDBusMessage evaluateInPlasma(const QDBusConnection &bus, const QString &script) {
    QDBusMessage call = QDBusMessage::createMethodCall(
        u"org.kde.plasmashell"_s, u"/PlasmaShell"_s, u"org.kde.PlasmaShell"_s, u"evaluateScript"_s);
    call.setAutoStartService(false);
    call.setArguments({script});
    return bus.call(call, QDBus::Block, kAnswerTimeoutMilliseconds);
}

std::optional<QString> printedBy(const QDBusMessage &answer) {
    const bool isText = answer.type() == QDBusMessage::ReplyMessage && answer.signature() == u"s"_s;
    return isText ? std::optional(answer.arguments().constFirst().toString()) : std::nullopt;
}

} // namespace zeph
