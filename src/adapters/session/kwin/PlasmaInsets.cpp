// SPDX-License-Identifier: MIT
#include "adapters/session/kwin/PlasmaInsets.h"

#include "adapters/bus/DBusCalls.h"
#include "ports/RunLoop.h"

#include <QDBusArgument>
#include <QRect>

#include <utility>

using namespace Qt::StringLiterals;

namespace zeph {

namespace {

const QString kShellName = u"org.kde.plasmashell"_s;
const QString kStrutsPath = u"/StrutManager"_s;
const QString kStrutsInterface = u"org.kde.PlasmaShell.StrutManager"_s;

// The shell hears of a change of outputs from the compositor, as we do, and works it off by itself.
constexpr std::chrono::milliseconds kUntilFollowed{2000};

/// Absent for an error, and for an output that the shell does not know.
std::optional<QRectF> areaIn(const QDBusMessage &answer) {
    if (answer.type() != QDBusMessage::ReplyMessage || answer.signature() != u"(iiii)"_s) {
        return std::nullopt;
    }
    const auto area = qdbus_cast<QRect>(answer.arguments().constFirst());
    return area.isEmpty() ? std::nullopt : std::optional(QRectF(area));
}

} // namespace

PlasmaInsets::PlasmaInsets(const QDBusConnection &bus, KWinScript &script, RunLoop &runLoop,
                           std::function<bool()> isShownByPlasma)
    : m_runLoop(runLoop),
      m_isShownByPlasma(std::move(isShownByPlasma)),
      m_panels(script.subscribeToPanels([this] { askForAll(); })),
      m_shell(bus, kShellName, [this] { shellChanged(); }) {}

std::optional<QRectF> PlasmaInsets::usableArea(const QString &outputName, const QRectF &frame) {
    const auto [output, isNew] = m_outputs.try_emplace(outputName);
    if (std::exchange(output->second.frame, frame) != frame || isNew) {
        output->second.area.reset();
        ask(outputName);
        if (!isNew) {
            askSoon();
        }
    }
    return output->second.area;
}

void PlasmaInsets::askSoon() {
    m_runLoop.after(kUntilFollowed, m_later.whileAlive([this, change = ++m_lastChange] {
        if (change == m_lastChange) {
            askForAll();
        }
    }));
}

Subscription PlasmaInsets::subscribe(std::function<void()> handler) {
    return m_changes.subscribe(std::move(handler));
}

void PlasmaInsets::askForAll() {
    for (auto &[name, output] : m_outputs) {
        ask(name);
    }
}

void PlasmaInsets::shellChanged() {
    bool areForgotten = false;
    for (auto &[name, output] : m_outputs) {
        areForgotten = areForgotten || output.area;
        output = {.frame = output.frame}; // what was asked is not answered any more
    }
    askForAll();
    if (areForgotten) {
        m_changes.send();
    }
}

void PlasmaInsets::ask(const QString &outputName) {
    Output &output = m_outputs[outputName];
    if (!m_shell.isThere()) {
        return;
    }
    if (std::exchange(output.isAsked, true)) {
        output.isStale = true;
        return;
    }
    m_shell.ask(
        kStrutsPath, kStrutsInterface, u"availableScreenRect"_s, {outputName}, busDefaultTimeout,
        [this, outputName](const QDBusMessage &answer) { take(outputName, areaIn(answer)); });
}

void PlasmaInsets::take(const QString &outputName, const std::optional<QRectF> &area) {
    Output &output = m_outputs[outputName];
    output.isAsked = false;
    if (std::exchange(output.isStale, false)) {
        ask(outputName);
    }
    if (std::exchange(output.area, area) != area) {
        m_changes.send();
    }
}

} // namespace zeph
